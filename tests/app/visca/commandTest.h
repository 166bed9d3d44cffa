/// Rows of command tests: a message goes in; a result, an answer and the calls on the camera's services come out.
#pragma once

#include "viscaTest.h"

/// What the camera is asked to do, in order and with "; " between, as the journal has it or in short: "ISP Gain 3" is
/// ISP_API_SetGain(0, 3, 1, 1); "ALG" and "SYS" go without the device; "lens X" and "head X" start a motion of the
/// message. REFUSED: nothing, and answered with an error.
const std::string REFUSED = "-";

inline std::string longForm(const std::string &strShort)
{
    const auto first = strShort.find(' '), last = strShort.rfind(' ');
    const std::string strHead = strShort.substr(0, first),
                      strRest = first == strShort.npos ? "" : strShort.substr(first + 1);
    if (strHead == "lens") return "BSP_ZFCtrlMotion(1, {" + strRest + "}, &)";
    if (strHead == "head") return "BSP_PTCtrlMotion(1, {" + strRest + "}, &)";
    if (strHead != "ISP" && strHead != "ALG" && strHead != "SYS") return strShort;
    return strHead + "_API_Set" + strShort.substr(first + 1, last - first - 1) + (strHead == "ISP" ? "(0, " : "(") +
           strShort.substr(last + 1) + ", 1, 1)";
}

struct Row {
    Message message;
    Numbers numbers;
    std::string strEffects;
    std::string strSettings = "";
    BU_S32 s32Result = 0; ///< more than 0: answered when the motion has ended
};
typedef std::vector<Row> Rows;

/// A row for each pair: code, and what stands for '%' in the effect.
inline Rows each(const Message &message, const std::string &strEffect,
                 const std::vector<std::pair<BU_S32, BU_S32>> &pairs, const std::string &strSettings = "")
{
    Rows rows;
    for (const auto &[s32Code, s32Value] : pairs) {
        std::string str = strEffect;
        rows.push_back({message, {s32Code}, str.replace(str.find('%'), 1, std::to_string(s32Value)), strSettings});
    }
    return rows;
}
inline Rows refused(const Message &message, const std::vector<Numbers> &list)
{
    Rows rows;
    for (const Numbers &numbers : list) rows.push_back({message, numbers, REFUSED});
    return rows;
}

class CommandTest : public ViscaTest
{
protected:
    /// Every row as it stands, and again with a failing service behind it.
    static void check(const Rows &rows)
    {
        for (const Row &row : rows) {
            const Type enType = row.message.enType;
            std::string strCase = "type " + std::to_string(enType) + ", row " + std::to_string(&row - rows.data());
            for (const BU_S32 s32 : row.numbers) strCase += " " + std::to_string(s32);
            SCOPED_TRACE(strCase);
            std::string strExpected, strFirst;
            std::istringstream list(row.strEffects == REFUSED ? "" : row.strEffects);
            for (std::string strOne; std::getline(list >> std::ws, strOne, ';');) {
                strExpected += longForm(strOne) + "; ";
                if (strFirst.empty()) strFirst = longForm(strOne).substr(0, longForm(strOne).find('('));
            }
            const BU_S32 s32Result = row.strEffects == REFUSED ? -1 : row.s32Result;
            EXPECT_EQ(dispatch(row.message, row.numbers, row.strSettings), s32Result);
            EXPECT_EQ(effects(), strExpected + answerOf(enType, s32Result));
            if (strFirst.empty()) continue;
            if (row.message.pcFailing) strFirst = row.message.pcFailing;
            const BU_S32 s32Failed = row.message.bSwallows ? 0 : -5;
            EXPECT_EQ(dispatch(row.message, row.numbers, row.strSettings + ", @" + strFirst + " -5"), s32Failed)
                << "with a failing service";
            EXPECT_THAT(effects(), testing::EndsWith(answerOf(enType, s32Failed)));
        }
    }
    static void check(const std::vector<Rows> &lists)
    {
        for (const Rows &rows : lists) check(rows);
    }

private:
    static std::string answerOf(Type enType, BU_S32 s32Result)
    {
        return s32Result == 0 || s32Result == -1 ? answered(enType, s32Result == 0) : "";
    }
};
