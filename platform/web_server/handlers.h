/// The handlers of the routes. Network thread; none of them waits.
#pragma once

#include "routes.h"
#include "users/password.h"
#include "web_client/recordJson.h"

#include <cstddef>

namespace web_server
{
/// Bodies. A text has one byte more than it may hold.
struct AccountBody {
    BU_CHAR user[33];
    BU_CHAR password[PASSWORD_BYTES_MAX + 1];
};
struct UserBody {
    BU_CHAR user[33];
    BU_CHAR password[PASSWORD_BYTES_MAX + 1];
    BU_CHAR role[9];
};
struct PasswordBody {
    BU_CHAR acOld[PASSWORD_BYTES_MAX + 1];
    BU_CHAR acNew[PASSWORD_BYTES_MAX + 1];
};
struct CentreBody {
    float x = -1;
    float y = -1;
};
struct MenuBody {
    BU_CHAR key[8];
};

/// Hands the handler its body, or answers what is wrong with it.
template <class T, Outcome (*HANDLE)(Desk &, const Visit &, const T &)>
Outcome withBody(Desk &stDesk, const Visit &stVisit)
{
    T stBody{};
    const std::string strFault =
        web_client::readRecord(web_layout::RECORD<T>, stVisit.stRequest.strBody, reinterpret_cast<BU_CHAR *>(&stBody));
    return strFault.empty() ? HANDLE(stDesk, stVisit, stBody) : problem(400, strFault);
}

// Accounts
Outcome getSession(Desk &stDesk, const Visit &stVisit);
Outcome setUp(Desk &stDesk, const Visit &stVisit, const AccountBody &stBody);
Outcome logIn(Desk &stDesk, const Visit &stVisit, const AccountBody &stBody);
Outcome logOut(Desk &stDesk, const Visit &stVisit);
Outcome getUsers(Desk &stDesk, const Visit &stVisit);
Outcome putUser(Desk &stDesk, const Visit &stVisit, const UserBody &stBody);
Outcome removeUser(Desk &stDesk, const Visit &stVisit);
Outcome changePassword(Desk &stDesk, const Visit &stVisit, const PasswordBody &stBody);

// The camera
Outcome getPage(Desk &stDesk, const Visit &stVisit);
Outcome callEvent(Desk &stDesk, const Visit &stVisit);
Outcome askSettings(Desk &stDesk, const Visit &stVisit);
Outcome askPresets(Desk &stDesk, const Visit &stVisit);
Outcome askPosition(Desk &stDesk, const Visit &stVisit);
Outcome centre(Desk &stDesk, const Visit &stVisit, const CentreBody &stBody);
Outcome menu(Desk &stDesk, const Visit &stVisit, const MenuBody &stBody);
Outcome getPicture(Desk &stDesk, const Visit &stVisit);
Outcome openNews(Desk &stDesk, const Visit &stVisit);
Outcome openPreview(Desk &stDesk, const Visit &stVisit);
} // namespace web_server

WEB_FIELDS(web_server::AccountBody, WEB_FIELD(user, 0), WEB_FIELD(password, 0));
WEB_FIELDS(web_server::UserBody, WEB_FIELD(user, 0), WEB_FIELD(password, 0), WEB_FIELD(role, 0));
WEB_FIELDS(web_server::PasswordBody, web_layout::field<decltype(Here::acOld)>("old", offsetof(Here, acOld), 0, false),
           web_layout::field<decltype(Here::acNew)>("new", offsetof(Here, acNew), 0, false));
WEB_FIELDS(web_server::CentreBody, WEB_FIELD(x, 0), WEB_FIELD(y, 0));
WEB_FIELDS(web_server::MenuBody, WEB_FIELD(key, 0));
