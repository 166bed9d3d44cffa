#include "eventReader.h"

#include <cstring>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <random>
#include <vector>

namespace
{
using input::EventReader;
typedef std::vector<BU_U8> Bytes;

input_event event(int s32Type, int s32Code, int s32Value, BU_S64 s64Second = 1'780'000'000)
{
    return {{s64Second, s64Second ? 123'456 : 0}, static_cast<BU_U16>(s32Type), static_cast<BU_U16>(s32Code), s32Value};
}
Bytes &operator+=(Bytes &bytes, const input_event &stEvent)
{
    const auto *pu8 = reinterpret_cast<const BU_U8 *>(&stEvent);
    bytes.insert(bytes.end(), pu8, pu8 + sizeof(stEvent));
    return bytes;
}

/// Reads in pieces of a size; gives the codes of the key events, released ones negative.
std::vector<int> keys(const Bytes &bytes, std::size_t piece)
{
    EventReader clReader;
    std::vector<int> codes;
    for (std::size_t at = 0; at < bytes.size(); at += piece)
        clReader.feed(std::span(bytes).subspan(at, std::min(piece, bytes.size() - at)), 1000, [&](const auto &stEvent) {
            if (stEvent.type == EV_KEY) codes.push_back(stEvent.value ? stEvent.code : -stEvent.code);
        });
    return codes;
}

TEST(EventReader, PiecesOfAnySizeMakeWholeRecords)
{
    Bytes bytes;
    std::vector<int> expected;
    for (int i = 1; i <= 50; ++i) {
        bytes += event(EV_MSC, MSC_SCAN, i), bytes += event(EV_KEY, i, i % 2), bytes += event(EV_SYN, SYN_REPORT, 0);
        expected.push_back(i % 2 ? i : -i);
    }
    for (const std::size_t piece : {1, 7, 23, 24, 25, 48, 1000, 100000}) EXPECT_EQ(keys(bytes, piece), expected);
}

// Garbage of every length, zero or random, before press, sync and release; with and without a time in the records.
TEST(EventReader, FindsTheNextRecordAfterGarbage)
{
    std::mt19937 random(6);
    for (const BU_S64 s64Second : {BU_S64{0}, BU_S64{1'780'000'000}})
        for (std::size_t length = 1; length < 100; ++length)
            for (const bool bZero : {true, false}) {
                if (s64Second == 0 && !bZero && length % 24 < 8) continue; // may look like the time of the record
                Bytes bytes(length);
                if (!bZero)
                    for (BU_U8 &u8 : bytes) u8 = static_cast<BU_U8>(random() | 0x80);
                for (const int s32Code : {30, 130, 1})
                    for (const int s32Value : {1, 0})
                        bytes += event(EV_KEY, s32Code, s32Value, s64Second), bytes += event(EV_SYN, 0, 0, s64Second);
                EXPECT_EQ(keys(bytes, 24), (std::vector{30, -30, 130, -130, 1, -1})) << length << " zero " << bZero;
            }
}

TEST(EventReader, TakesOnlyWhatADeviceSends)
{
    // clang-format off
    const input_event rows[] = {
        event(EV_KEY, 30, 3), event(EV_KEY, 30, -1), event(EV_KEY, KEY_MAX + 1, 1), event(EV_SYN, 1, 0), event(EV_MAX, 0, 0),
        event(EV_SYN, SYN_REPORT, 7), event(EV_MSC, MSC_MAX + 1, 0), event(0xFFFF, 30, 1), event(EV_KEY, 30, 1, -5),
        event(EV_KEY, 30, 1, 1LL << 33)};
    // clang-format on
    for (const input_event &stEvent : rows) {
        Bytes bytes;
        bytes += stEvent, bytes += event(EV_KEY, 31, 1);
        EXPECT_EQ(keys(bytes, 1000), std::vector{31}) << stEvent.type << ' ' << stEvent.code << ' ' << stEvent.value;
    }
}

TEST(EventReader, ARecordThatBrokeOffIsForgottenAfterHalfASecond)
{
    Bytes first, second;
    first += event(EV_KEY, 30, 1), second += event(EV_KEY, 31, 1);
    for (const BU_S64 s64RestMs : {1499, 1500}) { // a slow writer is no broken one
        EventReader clReader;
        std::vector<int> codes;
        const auto sink = [&](const input_event &stEvent) { codes.push_back(stEvent.code); };
        clReader.feed(std::span(first).first(17), 1000, sink);
        clReader.feed(std::span(first).subspan(17), s64RestMs, sink);
        clReader.feed(second, s64RestMs + 500, sink);
        EXPECT_EQ(codes, s64RestMs == 1499 ? (std::vector{30, 31}) : std::vector{31});
    }
}
} // namespace
