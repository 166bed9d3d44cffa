/// Players of the camera's streams: the programs of Debian's ffmpeg, and what they see.
#pragma once

#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

struct tagENDED_S {
    int s32Status; ///< of the exit
    std::string strOut, strErr;
};
/// Runs a command of the shell to its end, for 20 seconds at most.
tagENDED_S runCommand(const std::string &strCommand);

/// What ffprobe tells of the streams behind an address: "h264,1920,1080 aac,48000,2".
std::string probe(const std::string &strUrl, const std::string &strTransport = "tcp");

/// Brightness of a picture, point by point.
struct tagGRAY_S {
    static constexpr int WIDTH = 160, HEIGHT = 90;
    std::vector<std::uint8_t> points; ///< empty: none came

    double mean() const;
    std::vector<double> columns() const; ///< mean of each
    std::vector<double> rows() const;
};

/// Plays a stream and gives its pictures.
class GrayPlayer
{
public:
    explicit GrayPlayer(const std::string &strUrl);
    ~GrayPlayer() { pclose(m_pstPictures); }
    GrayPlayer(const GrayPlayer &) = delete;
    GrayPlayer &operator=(const GrayPlayer &) = delete;

    tagGRAY_S next(); ///< the next picture; without points when none comes, after a minute of play at the latest

    /// Looks on until a picture is as it should be. @return false: none of so many was
    template <class Condition> bool sees(Condition condition, int s32Pictures = 150)
    {
        for (int i = 0; i < s32Pictures; ++i)
            if (const tagGRAY_S st = next(); st.points.empty() || condition(st)) return !st.points.empty();
        return false;
    }

private:
    FILE *m_pstPictures;
};
