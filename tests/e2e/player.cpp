#include "player.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <numeric>
#include <sys/wait.h>
#include <unistd.h>

namespace
{
/// A stream starts at a key frame, which comes within half a second: nothing else has to be looked for.
const std::string QUICK = " -v error -probesize 200000 -analyzeduration 600000 -fpsprobesize 0 ";
} // namespace

tagENDED_S runCommand(const std::string &strCommand)
{
    char acErrors[] = "/tmp/camera-e2e-XXXXXX";
    close(mkstemp(acErrors));
    tagENDED_S st{};
    FILE *const pstOut = popen(("timeout 20 " + strCommand + " </dev/null 2>" + acErrors).c_str(), "r");
    for (int c; (c = std::fgetc(pstOut)) != EOF;) st.strOut += static_cast<char>(c);
    st.s32Status = pclose(pstOut);
    st.s32Status = WIFEXITED(st.s32Status) ? WEXITSTATUS(st.s32Status) : 128 + WTERMSIG(st.s32Status);
    std::ifstream errors(acErrors);
    st.strErr.assign(std::istreambuf_iterator<char>(errors), {});
    std::remove(acErrors);
    return st;
}

std::string probe(const std::string &strUrl, const std::string &strTransport)
{
    tagENDED_S st = runCommand("ffprobe" + QUICK + "-rtsp_transport " + strTransport +
                               " -show_entries stream=codec_name,width,height,sample_rate,channels"
                               " -of csv=print_section=0 " +
                               strUrl);
    if (st.s32Status != 0) return st.strErr;
    while (!st.strOut.empty() && st.strOut.back() == '\n') st.strOut.pop_back();
    std::ranges::replace(st.strOut, '\n', ' ');
    return st.strOut;
}

double tagGRAY_S::mean() const
{
    return std::accumulate(points.begin(), points.end(), 0.0) / static_cast<double>(points.size());
}

std::vector<double> tagGRAY_S::columns() const
{
    std::vector<double> list(WIDTH);
    for (std::size_t i = 0; i < points.size(); ++i) list[i % WIDTH] += points[i] / double{HEIGHT};
    return list;
}

std::vector<double> tagGRAY_S::rows() const
{
    std::vector<double> list(HEIGHT);
    for (std::size_t i = 0; i < points.size(); ++i) list[i / WIDTH] += points[i] / double{WIDTH};
    return list;
}

GrayPlayer::GrayPlayer(const std::string &strUrl)
    : m_pstPictures(popen(("timeout 60 ffmpeg" + QUICK + "-rtsp_transport tcp -allowed_media_types video -i " + strUrl +
                           " -vf scale=" + std::to_string(tagGRAY_S::WIDTH) + ":" + std::to_string(tagGRAY_S::HEIGHT) +
                           ",format=gray -f rawvideo - </dev/null")
                              .c_str(),
                          "re"))
{
}

tagGRAY_S GrayPlayer::next()
{
    tagGRAY_S st{std::vector<std::uint8_t>(tagGRAY_S::WIDTH * tagGRAY_S::HEIGHT)};
    if (std::fread(st.points.data(), st.points.size(), 1, m_pstPictures) != 1) return {};
    return st;
}
