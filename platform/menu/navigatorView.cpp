// What the open menu shows.
#include "camera/settingEvent.h"
#include "navigator.h"
#include "vocabulary/tables.h"

#include <algorithm>
#include <iterator>

namespace menu
{
namespace
{
const Label NEXT_START{"Runs from the next start on", "下次启动后生效"}, CONFIRM{"OK: apply", "OK：应用"},
    CHANGE{"◄ ► change", "◄ ► 更改"}, OPEN{"► open", "► 打开"}, START{"OK: start", "OK：执行"},
    EDIT{"OK: edit", "OK：编辑"}, EDITING{"▲ ▼ digit   ◄ ► place   OK", "▲ ▼ 数字   ◄ ► 位置   OK"};

bool isChinese()
{
    BU_S32 s32Language = 1;
    CFG_SETTING_Get("Language", 0, &s32Language, BU_FALSE);
    return s32Language == sysStr2Enum(MAP_SYS_LANGUAGE, std::size(MAP_SYS_LANGUAGE), "Chinese");
}
} // namespace

std::string Navigator::text(const Label &label) const
{
    const bool bOther = !label.strChinese.empty() && isChinese() && m_canShow(label.strChinese);
    return bOther ? label.strChinese : label.strEnglish;
}

std::string Navigator::valueText(const Item &item, const Value &value) const
{
    if (const auto *pstrText = std::get_if<std::string>(&value); pstrText && item.enKind != Kind::OPTION)
        return *pstrText;
    if (item.enKind == Kind::OPTION) {
        const BU_S32 s32Option = optionOf(item, value);
        if (s32Option >= 0) return text(item.listOptions[static_cast<std::size_t>(s32Option)].label);
        if (const auto *pstrWord = std::get_if<std::string>(&value)) return *pstrWord;
    }
    return std::to_string(std::get<BU_S32>(value)) + (item.strUnit.empty() ? "" : " " + item.strUnit);
}

Value Navigator::pendingValue(const Item &item) const
{
    if (item.enKind == Kind::OPTION) return item.listOptions[static_cast<std::size_t>(*m_pending)].strWord;
    return *m_pending;
}

void Navigator::showValue(const Item &item, Row &row) const
{
    const bool bPending = row.bSelected && m_pending;
    const auto value = currentValue(item, m_service);
    row.bPending = bPending && item.bManual;
    if (bPending || value) row.strValue = valueText(item, bPending ? pendingValue(item) : *value);
    if (item.enKind == Kind::TEXT || !value) return;
    const BU_S32 s32Now = bPending ? *m_pending : stepValue(item).value_or(0);
    const BU_S32 s32Min = item.enKind == Kind::INT ? item.stRange.s32Min : 0,
                 s32Max =
                     item.enKind == Kind::INT ? item.stRange.s32Max : static_cast<BU_S32>(item.listOptions.size()) - 1;
    row.bLess = row.bSelected && s32Now > s32Min;
    row.bMore = row.bSelected && s32Now < s32Max;
    if (item.enKind == Kind::INT) row.s32Permille = std::clamp((s32Now - s32Min) * 1000 / (s32Max - s32Min), 0, 1000);
}

Row Navigator::rowOf(const Item &item)
{
    Row row;
    row.strLabel = text(item.label);
    row.bSelected = &item == m_stack.back().pSelected;
    row.bOpens = item.enKind == Kind::PAGE;
    switch (item.enKind) {
    case Kind::INT:
    case Kind::OPTION:
        showValue(item, row);
        break;
    case Kind::TEXT:
        if (row.bSelected && m_edit) {
            row.strValue = m_edit->text();
            row.s32Cursor = m_edit->cursor();
        } else
            showValue(item, row);
        break;
    case Kind::INFO:
        row.strValue = infoText(item.strKey, m_service);
        if (row.strValue.empty()) row.strValue = "-";
        break;
    default:
        break;
    }
    return row;
}

std::string Navigator::footOf(const Item &item) const
{
    if (!m_strMessage.empty()) return m_strMessage;
    if (m_edit) return text(EDITING);
    switch (item.enKind) {
    case Kind::PAGE:
        return text(OPEN);
    case Kind::TEXT:
        return text(EDIT);
    case Kind::ACTION:
        return m_stack.back().pConfirm ? "" : text(START);
    case Kind::INT:
    case Kind::OPTION:
        return text(item.bManual && m_pending ? CONFIRM : item.bNextStart ? NEXT_START : CHANGE);
    default:
        return "";
    }
}

View Navigator::view(std::size_t rows)
{
    const Item &selected = selectedItem();
    Frame &frame = m_stack.back();
    const auto list = items();
    View view;
    view.strTitle = text(frame.pConfirm ? frame.pConfirm->label : frame.pPage->label);
    view.strFoot = footOf(selected);
    if (frame.pConfirm) {
        Row heading;
        heading.strLabel = text(*frame.pConfirm->confirm);
        heading.bHeading = true;
        if (m_pending) heading.strValue = valueText(*frame.pConfirm, pendingValue(*frame.pConfirm));
        view.listRows.push_back(std::move(heading));
    }
    if (frame.selected < frame.first) frame.first = frame.selected;
    if (frame.selected >= frame.first + rows) frame.first = frame.selected + 1 - rows;
    frame.first = std::min(frame.first, list.size() > rows ? list.size() - rows : 0);
    for (std::size_t i = frame.first; i < std::min(list.size(), frame.first + rows); ++i)
        view.listRows.push_back(rowOf(*list[i]));
    view.s32First = static_cast<BU_S32>(frame.first);
    view.s32Total = static_cast<BU_S32>(list.size());
    return view;
}
} // namespace menu
