#pragma once

#include "request.h"
#include "routes.h"
#include "sessions.h"
#include "users/password.h"
#include "users/users.h"
#include "webRoot.h"

#include <ctime>
#include <map>

/// The decisions with a user of each role, who is logged in.
class LogicTest : public WebRootTest
{
protected:
    /// Makes the users' files; call it first where they are wanted.
    void haveUsers()
    {
        using namespace web_server;
        Users users;
        Sessions sessions(s64Now);
        users.makeFirst(nameOf(Role::ADMIN), "$no");
        for (const Role enRole : {Role::VIEWER, Role::OPERATOR, Role::ADMIN}) {
            users.put(nameOf(enRole), "$no", enRole);
            tokens[enRole] = sessions.open(nameOf(enRole), s64Now);
        }
    }

    /// A request as a browser sends it from the camera's own page.
    web_server::Request request(const std::string &strMethod, const std::string &strPath,
                                const std::string &strToken = {}, const std::string &strBody = {}) const
    {
        web_server::Request stRequest;
        stRequest.strMethod = strMethod;
        stRequest.strPath = strPath;
        stRequest.strHost = "127.0.0.1:8080";
        stRequest.strOrigin = "http://127.0.0.1:8080";
        stRequest.strRemote = "127.0.0.1";
        stRequest.s64Unix = s64Now;
        if (!strToken.empty()) stRequest.strCookie = "a=b; camera_session=" + strToken;
        if (!strBody.empty()) {
            stRequest.strContentType = "application/json";
            stRequest.u64BodyBytes = strBody.size();
            stRequest.strBody = strBody;
        }
        return stRequest;
    }

    const std::string &token(web_server::Role enRole) const { return tokens.at(enRole); }

    /// What a browser would get; 0: something that is not decided here (a call, a file).
    static BU_U32 status(web_server::Outcome stOutcome) { return reply(std::move(stOutcome)).u32Status; }
    static web_server::Reply reply(web_server::Outcome stOutcome)
    {
        if (auto *pstWork = std::get_if<web_server::Work>(&stOutcome)) return pstWork->fnRun();
        if (auto *pstReply = std::get_if<web_server::Reply>(&stOutcome)) return *pstReply;
        return {0, {}, {}, {}};
    }
    static std::string header(const web_server::Reply &stReply, const std::string &strName)
    {
        return std::map<std::string, std::string>(stReply.headers.begin(), stReply.headers.end())[strName];
    }

    const BU_S64 s64Now = std::time(nullptr);
    std::map<web_server::Role, std::string> tokens{{web_server::Role::ANYONE, ""}};
};
