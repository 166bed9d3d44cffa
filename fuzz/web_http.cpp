// Any bytes as what a browser sends, cut in two at byte 0: requests are the same however they arrive.
#include "http/answer.h"
#include "http/headers.h"
#include "http/request.h"
#include "require.h"

#include <algorithm>
#include <vector>

namespace
{
using namespace http;

/// The requests in one line each, and the refusal that ends them.
struct tagREADER_S {
    HeadReader reader;
    std::string strInput, strSeen;
    bool bEnded = false;

    void add(std::string_view bytes)
    {
        strInput += bytes;
        while (!bEnded) {
            const std::size_t before = strInput.size();
            const auto parsed = reader.take(strInput);
            if (!parsed) return;
            if (const auto *pst = std::get_if<Refusal>(&*parsed)) {
                bEnded = true;
                strSeen += "refused " + std::to_string(pst->u32Status);
                require(pst->u32Status >= 400);
                return;
            }
            const auto &st = std::get<Head>(*parsed).stRequest;
            require(strInput.size() < before);
            require(st.strPath.starts_with('/') && st.strMethod.find_first_of("\r\n ") == std::string::npos);
            strSeen += st.strMethod + ' ' + st.strPath + '?' + st.strQuery + ' ' + st.strHost.value_or("-") + '\n';
        }
    }
};
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *pu8Data, std::size_t size)
{
    if (size == 0) return 0;
    const std::string_view bytes(reinterpret_cast<const char *>(pu8Data) + 1, size - 1);
    const std::size_t cut = std::min<std::size_t>(pu8Data[0], bytes.size());
    tagREADER_S whole, halves;
    whole.add(bytes);
    halves.add(bytes.substr(0, cut));
    halves.add(bytes.substr(cut));
    require(whole.strSeen == halves.strSeen);
    isTagIn(bytes, "\"tag\"");
    if (isWebSocketKey(bytes)) require(switchingHead(bytes, {}).find("Sec-WebSocket-Accept: ") != std::string::npos);
    return 0;
}
