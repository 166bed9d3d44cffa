// The packet tables of docs/visca.md, from the rows.
#include "doc.h"

#include "table.h"

#include <cstdio>

namespace visca
{
namespace
{
std::string hex(BU_U32 u32Value)
{
    char acText[16];
    std::snprintf(acText, sizeof acText, u32Value > 0xFF ? "%04X" : "%02X", u32Value);
    return acText;
}

std::string bytesOf(const Pattern &pattern)
{
    return pattern.bBroadcast ? std::string(pattern.pcText) + " FF" : "8x " + std::string(pattern.pcText) + " FF";
}

std::string rangesOf(const Row &row)
{
    std::string strRanges;
    for (std::size_t i = 0; i < row.u8Parts; ++i) {
        const Part &part = row.astPart[i];
        if (!part.cLetter) continue;
        strRanges += (strRanges.empty() ? "" : ", ") + std::string(1, part.cLetter) + " " + hex(part.u32Min) + "-" +
                     hex(part.u32Max);
    }
    return strRanges;
}

std::string answerOf(const Row &row)
{
    if (row.enType == VISCA_CMD_E_CANCEL) return "`z0 6p 04 FF`, `z0 6p 05 FF`";
    if (row.pattern.bBroadcast) return "`88 30 0w FF`";
    if (!row.isInquiry()) return "";
    const std::string strPayload = row.reply.pcText ? row.reply.pcText : "";
    if (std::string(row.pcMeaning).find("(refused") != std::string::npos) return "`z0 60 41 FF`";
    return strPayload.starts_with("see ") ? strPayload
                                          : "`z0 50 " + strPayload + (strPayload.empty() ? "" : " ") + "FF`";
}

std::string tableOf(const Topic &topic, bool bInquiries)
{
    std::string strTable;
    for (const Row &row : topic.rows) {
        if (row.isInquiry() != bInquiries) continue;
        strTable += "| `" + bytesOf(row.pattern) + "` | " + row.pcMeaning + " | ";
        strTable +=
            (bInquiries ? answerOf(row) : rangesOf(row) + (answerOf(row).empty() ? "" : "; " + answerOf(row))) + " |\n";
    }
    if (strTable.empty()) return "";
    return (bInquiries ? "\n| Inquiry | Meaning | Answer |\n|---|---|---|\n"
                       : "\n| Command | Meaning | Values |\n|---|---|---|\n") +
           strTable;
}
} // namespace

std::string packetTables()
{
    std::string strText;
    for (const Topic &topic : topics())
        strText += "\n### " + std::string(topic.pcTitle) + "\n" + tableOf(topic, false) + tableOf(topic, true);
    return strText;
}
} // namespace visca
