/// Camera values and their numbers in the protocols: a table a setting, a row a value, a column a protocol, each column
/// read both ways.
///
/// A protocol that comes later adds a member to Row and its numbers to the tables; where a row is silent, the protocol
/// has no number for that value.
#pragma once

#include "base/types.h"

#include <algorithm>
#include <array>
#include <climits>
#include <cstddef>
#include <stdexcept>

namespace codes
{
/// No value, no number.
inline constexpr BU_S32 NONE = INT_MIN;

struct Row {
    BU_S32 s32Camera;
    BU_S32 s32Visca = NONE;
    BU_S32 s32ViscaOther = NONE; ///< of the one VISCA message that counts otherwise; named at the table
};
typedef BU_S32 Row::*Column;

/// Where a column is read wider than it is written: the number of every camera value without one, and the camera value
/// of every number without one.
struct Wider {
    Column column = nullptr;
    BU_S32 s32Code = NONE, s32Camera = NONE;
};

template <std::size_t N> class Table
{
public:
    /// Does not compile when a value or a number stands twice.
    consteval Table(const Row (&rows)[N], std::array<Wider, 2> wider = {}) : m_wider(wider)
    {
        std::ranges::copy(rows, m_rows.begin());
        for (const Column column : {&Row::s32Camera, &Row::s32Visca, &Row::s32ViscaOther})
            for (std::size_t i = 0; i < N; ++i)
                for (std::size_t j = 0; j < i; ++j)
                    if (m_rows[i].*column != NONE && m_rows[i].*column == m_rows[j].*column)
                        throw std::logic_error("not one-to-one");
    }
    /// @return NONE: the protocol has no number for the value
    constexpr BU_S32 toCode(Column column, BU_S32 s32Camera) const
    {
        return read(&Row::s32Camera, s32Camera, column, column, &Wider::s32Code);
    }
    /// @return NONE: the number means nothing
    constexpr BU_S32 toCamera(Column column, BU_S32 s32Code) const
    {
        return read(column, s32Code, &Row::s32Camera, column, &Wider::s32Camera);
    }

private:
    constexpr BU_S32 read(Column from, BU_S32 s32Value, Column to, Column column, BU_S32 Wider::*other) const
    {
        if (s32Value == NONE) return NONE;
        for (const Row &row : m_rows)
            if (row.*from == s32Value && row.*to != NONE) return row.*to;
        const auto wider = std::ranges::find(m_wider, column, &Wider::column);
        return wider == m_wider.end() ? NONE : (*wider).*other;
    }
    std::array<Row, N> m_rows{};
    std::array<Wider, 2> m_wider;
};
} // namespace codes
