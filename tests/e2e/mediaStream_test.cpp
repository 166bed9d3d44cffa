// Streams as players of the outside see them.
#include "mediaCamera.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace
{
using testing::HasSubstr;

const std::string MAIN = "h264,1920,1080 aac,48000,2", SUB = "h264,640,360 aac,48000,2";

TEST(MediaStream, EverySessionByEveryTransport)
{
    const MediaCamera camera;
    EXPECT_EQ(probe(camera.url("closeup"), "tcp"), MAIN);
    EXPECT_EQ(probe(camera.url("closeup_sub"), "udp"), SUB);
    EXPECT_EQ(probe(camera.url("panorama"), "udp"), "h264,1280,720 aac,48000,2");
    EXPECT_EQ(probe(camera.url("panorama_sub", 8554), "http"), SUB);
    EXPECT_THAT(probe(camera.url("nobody")), HasSubstr("404"));
    EXPECT_THAT(probe(camera.url("closeup"), "udp_multicast"), testing::Not(HasSubstr("h264")));
}

TEST(MediaStream, CredentialsOpenItAndNothingElseDoes)
{
    const PreparedRoot root;
    CFG_LM_RTSP_GENERAL_S stCfg;
    stCfg.bAuthEnable = BU_TRUE;
    stCfg.sUsername = "admin";
    stCfg.sPassword = "secret";
    ASSERT_EQ(CFG_LM_SaveRtspGeneralCfg(&stCfg), 0);
    const MediaCamera camera({.strRoot = root.path()});

    for (const auto &[pcTransport, s32Port] : {std::pair{"tcp", 554}, {"http", 8554}}) { // ffmpeg takes digest
        EXPECT_EQ(probe(camera.url("closeup_sub", s32Port, "admin:secret@"), pcTransport), SUB);
        EXPECT_THAT(probe(camera.url("closeup_sub", s32Port, "admin:wrong@"), pcTransport), HasSubstr("401"));
    }
}

TEST(MediaStream, PicturesDecodeWithoutFault)
{
    const MediaCamera camera;
    for (const std::string strFormat : {"h264 640x360", "h265 320x180"}) {
        camera.setEncoder("1 " + strFormat);
        tagENDED_S st;
        for (int i = 0; i < 3 && (i == 0 || st.s32Status != 0); ++i) // it may meet the change
            st = runCommand("ffmpeg -v error -xerror -analyzeduration 600000 -rtsp_transport tcp -i " +
                            camera.url("closeup_sub") +
                            " -map 0:v -frames:v 30 -vf setpts=N -f null -"
                            " -map 0:a -frames:a 30 -af asetpts=N/SR/TB -f null -");
        EXPECT_EQ(st.s32Status, 0) << strFormat;
        EXPECT_EQ(st.strErr, "") << strFormat;
    }
}

TEST(MediaStream, SceneFromAFileIsSeenAndLoops)
{
    const PreparedRoot root;
    const std::string strFile = root.path() + "/white.mkv"; // a second of white: no hall is as bright
    ASSERT_EQ(runCommand("ffmpeg -v error -f lavfi -i color=white:s=320x180:r=25:d=1 -pix_fmt yuv420p -c:v libx264"
                         " -preset ultrafast " +
                         strFile)
                  .s32Status,
              0);
    const MediaCamera camera({.env = {"CAMERA_SCENE=" + strFile}});
    GrayPlayer player(camera.url("closeup_sub"));
    double dLeast = 255;
    for (int i = 0; i < 45; ++i) dLeast = std::min(dLeast, player.next().mean());
    const MediaCamera hall({.env = {"CAMERA_SCENE=" + root.path() + "/missing.mkv"}});
    const double dHall = GrayPlayer(hall.url("closeup_sub")).next().mean();
    EXPECT_GT(dLeast, dHall + 40);
    EXPECT_GT(dHall, 20) << "a missing file leaves the synthetic scene";
}
} // namespace
