// Sound: in step with the scene's clock, at the volume that is set.
#include "decoder.h"
#include "mediaTest.h"

#include "audioTone.h"
#include "camera/sound.h"
#include "internal.h"

#include <cmath>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{
constexpr BU_S32 CACHE = 6;

struct Sound : MediaTest {
    /// Decodes until fnEnough says so of a sample's time [us on the monotonic clock] and value.
    template <class F> void listen(F fnEnough)
    {
        TestReader reader(CACHE);
        Decoder decoder(STREAM_TYPE_AAC);
        for (int i = 0; i < 200; ++i) {
            const auto stPacket = reader.read();
            const auto st = decoder.decode(stPacket.vec);
            EXPECT_THAT(st.vecLeft, testing::Pointwise(testing::FloatNear(0.01F), st.vecRight));
            if (i < 2) continue; // the decoder warms up
            for (std::size_t j = 0; j < st.vecLeft.size(); ++j)
                if (fnEnough(static_cast<BU_S64>(stPacket.u64Timestamp) + static_cast<BU_S64>(j) * 1'000'000 / 48'000,
                             st.vecLeft[j]))
                    return;
        }
        ADD_FAILURE() << "nothing heard";
    }
};

TEST_F(Sound, BeepsWhenASecondOfTheSceneBegins)
{
    BU_S64 s64Beep = -1;
    bool bQuiet = false;
    listen([&](BU_S64 s64Us, float f) {
        s64Beep = (media::sceneTimeUs(s64Us) + 500'000) % 1'000'000 - 500'000;
        bQuiet = bQuiet || s64Beep > 300'000; // has heard the time before the beep
        return bQuiet && std::abs(f) >= 0.1F;
    });
    EXPECT_LT(s64Beep, 12'000);
    EXPECT_GT(s64Beep, -6'000); // the codec spreads an edge by a few milliseconds
}

TEST_F(Sound, MetadataAndTimesOfPackets)
{
    const STREAM_PACKET_METADATA_S stExpected{STREAM_TYPE_AAC, 0, 0, 0, 0, 48'000, 2, 1024};
    EXPECT_EQ(STREAM_getStreamCacheMetadata(STREAM_getStreamCacheById(CACHE)), stExpected);
    TestReader reader(CACHE);
    BU_U64 u64Last = reader.read().u64Timestamp;
    for (int i = 0; i < 5; ++i) {
        const auto st = reader.read();
        EXPECT_NEAR(static_cast<double>(st.u64Timestamp - u64Last), 21'333, 1);
        EXPECT_TRUE(st.bKeyFrame);
        u64Last = st.u64Timestamp;
    }
}

TEST_F(Sound, InputPipeVolumeAndMute)
{
    const std::string strPipe = root() + "/dev/audio_in";
    std::filesystem::create_directories(root() + "/dev");
    ASSERT_EQ(mkfifo(strPipe.c_str(), 0600), 0);
    const int s32Fd = open(strPipe.c_str(), O_RDWR | O_NONBLOCK);
    const auto play = [&](BU_S16 s16) { // half a second and more of a constant
        const std::vector<BU_S16> vec(32'000, s16);
        return write(s32Fd, vec.data(), vec.size() * 2);
    };
    const auto hears = [&](float fLow, float fHigh) { listen([&](BU_S64, float f) { return f > fLow && f < fHigh; }); };
    ASSERT_GT(play(8192), 0);
    hears(0.24F, 0.26F);
    for (const auto &[s32Volume, s16, fLow, fHigh] :
         {std::tuple{25, 8192, 0.055F, 0.07F}, {100, 16384, 0.97F, 1.03F}}) {
        SYS_API_SetAudioVolume(s32Volume, BU_FALSE); // the louder one is limited
        play(BU_S16(s16));
        hears(fLow, fHigh);
    }
    SYS_API_SetAudioMute(BU_TRUE, BU_FALSE, BU_TRUE);
    play(16384);
    int s32Silent = 0;
    listen([&](BU_S64, float f) { return (s32Silent = std::abs(f) < 1e-4F ? s32Silent + 1 : 0) > 4096; });
    close(s32Fd);
}

TEST(Tone, SameSampleSameSoundWhereverAPieceBegins)
{
    std::vector<float> vecWhole(4096), vecParts(4096);
    constexpr BU_S64 FIRST = 48'000LL * 86'400 * 30;
    media::renderTone(FIRST, vecWhole);
    for (std::size_t i = 0; i < vecParts.size(); i += 512)
        media::renderTone(FIRST + static_cast<BU_S64>(i), {vecParts.data() + i, 512});
    for (std::size_t i = 0; i < vecWhole.size(); ++i) ASSERT_NEAR(vecWhole[i], vecParts[i], 2e-3) << i;
    EXPECT_GT(*std::ranges::max_element(vecWhole), 1e-4F);
}
} // namespace
