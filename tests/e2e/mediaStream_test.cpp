// Streams as players of the outside see them.
#include "mediaCamera.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <glib.h>

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
    EXPECT_EQ(probe(camera.tunnelUrl("panorama_sub"), "http"), SUB);
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

    // ffmpeg takes the strongest way that it is offered: digest.
    EXPECT_EQ(probe(camera.url("closeup_sub", "admin:secret@"), "tcp"), SUB);
    EXPECT_EQ(probe(camera.url("closeup_sub", "admin:secret@"), "udp"), SUB);
    EXPECT_EQ(probe(camera.tunnelUrl("closeup_sub", "admin:secret@"), "http"), SUB);
    for (const std::string strUser : {"", "admin:wrong@", "other:secret@"}) {
        EXPECT_THAT(probe(camera.url("closeup_sub", strUser), "tcp"), HasSubstr("401")) << strUser;
        EXPECT_THAT(probe(camera.url("nobody", strUser), "tcp"), HasSubstr("401")) << strUser << ": names are secret";
    }
    EXPECT_THAT(probe(camera.tunnelUrl("closeup_sub", "admin:wrong@"), "http"), HasSubstr("401"));

    const auto basic = [&](const std::string &strPair) {
        gchar *pcText = g_base64_encode(reinterpret_cast<const guchar *>(strPair.data()), strPair.size());
        RtspClient client = camera.client();
        const int s32Status =
            client.request("DESCRIBE", client.url("closeup_sub"), {{"Authorization", std::string("Basic ") + pcText}})
                .s32Status;
        g_free(pcText);
        return s32Status;
    };
    EXPECT_EQ(basic("admin:secret"), 200);
    EXPECT_EQ(basic("admin:wrong"), 401);
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
    EXPECT_EQ(probe(camera.url("closeup_sub")), "hevc,320,180 aac,48000,2");
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
