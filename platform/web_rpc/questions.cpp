// The questions by name: JSON in, JSON out, by the field lists of their records.
#include "questions.h"

#include "service.h"
#include "util/journal.h"
#include "web/webRpc.h"
#include "web_client/client.h"
#include "web_client/recordJson.h"

#include <map>

namespace
{
struct Question {
    WEB_RPC_RECORD_S stRequest, stAnswer;
    PFN_WEB_RPC_ANSWER pfnAnswer;
};
/// Written while the service is stopped, read while it runs.
std::map<std::string, Question> g_questions;
} // namespace

BU_S32 WEB_RPC_RegisterQuestion(const BU_CHAR *pcName, const WEB_RPC_RECORD_S &stRequest,
                                const WEB_RPC_RECORD_S &stAnswer, PFN_WEB_RPC_ANSWER pfnAnswer)
{
    if (const auto injected = journal::call(__func__, pcName)) return *injected;
    if (!pcName || !*pcName || !pfnAnswer) return -1;
    return web_rpc::whileStopped([&] { g_questions[pcName] = {stRequest, stAnswer, pfnAnswer}; }) ? 0 : -1;
}

web_rpc::Result web_rpc::answerQuestion(const std::string &strQuestion, const std::string &strJson)
{
    const auto question = g_questions.find(strQuestion);
    if (question == g_questions.end()) return {WEB_CLIENT_RESULT_E_UNKNOWN, "nobody knows the question"};
    const auto &[stRequest, stAnswer, pfnAnswer] = question->second;
    const auto pvRequest = stRequest.fnCreate(), pvAnswer = stAnswer.fnCreate();
    std::string strFault = web_client::readRecord(*stRequest.pstRecord, strJson.empty() ? "{}" : strJson,
                                                  static_cast<BU_CHAR *>(pvRequest.get()));
    if (!strFault.empty()) return {WEB_CLIENT_RESULT_E_REFUSED, std::move(strFault)};
    if (const BU_CHAR *pcWhy = pfnAnswer(pvRequest.get(), pvAnswer.get())) return {WEB_CLIENT_RESULT_E_REFUSED, pcWhy};
    return {WEB_CLIENT_RESULT_E_OK,
            web_client::writeRecord(*stAnswer.pstRecord, static_cast<const BU_CHAR *>(pvAnswer.get()))};
}
