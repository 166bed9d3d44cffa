/// A script in place of the web server program: it tells each start, reports its ports, and waits for its end.
#pragma once

#include <filesystem>
#include <fstream>
#include <poll.h>
#include <string>
#include <sys/stat.h>
#include <sys/types.h>

#include <fcntl.h>
#include <unistd.h>

class FakeWebServer
{
public:
    /// @param strFirst  shell commands at its start
    explicit FakeWebServer(const std::string &strFolder, const std::string &strFirst = "")
        : m_strScript(strFolder + "/fake-web"), m_strStarts(strFolder + "/fake-web-starts")
    {
        mkfifo(m_strStarts.c_str(), 0600);
        m_fd = open(m_strStarts.c_str(), O_RDWR | O_CLOEXEC);
        std::ofstream(m_strScript) << "#!/bin/bash\n" + strFirst +
                                          "\nfd=\"${!#}\"\n"
                                          "echo http 8080 >&$fd; echo https 8443 >&$fd; exec {fd}>&-\n"
                                          "echo \"$$ $*\" > '" +
                                          m_strStarts + "'\nexec sleep 1000\n";
        std::filesystem::permissions(m_strScript, std::filesystem::perms::owner_all);
    }
    ~FakeWebServer() { close(m_fd); }
    FakeWebServer(const FakeWebServer &) = delete;
    FakeWebServer &operator=(const FakeWebServer &) = delete;

    const std::string &path() const { return m_strScript; }
    struct tagSTART_S {
        pid_t pid = 0; ///< 0: none in that time
        std::string strArguments;
    };
    tagSTART_S waitForStart(int s32Ms) const
    {
        std::string strLine;
        for (char c = 0; c != '\n'; strLine += c) {
            pollfd stWatch{m_fd, POLLIN, 0};
            if (poll(&stWatch, 1, s32Ms) < 1 || read(m_fd, &c, 1) != 1) return {};
        }
        const std::size_t gap = strLine.find(' ');
        return {std::stoi(strLine), strLine.substr(gap + 1, strLine.size() - gap - 2)};
    }

private:
    const std::string m_strScript, m_strStarts;
    int m_fd;
};
