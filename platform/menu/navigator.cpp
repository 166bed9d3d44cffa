// What the keys do on a page, in an editor, at a question.
#include "navigator.h"

#include <algorithm>
#include <cstring>

namespace menu
{
namespace
{
// A held key steps faster after a while, where the way is long.
constexpr BU_S32 FAST_AFTER_STEPS = 4, FAST_TIMES = 5, FAST_RANGE_STEPS = 50;

Item own(Kind enKind, const BU_CHAR *pcKey, Label label)
{
    Item item;
    item.enKind = enKind;
    item.strKey = pcKey;
    item.label = std::move(label);
    return item;
}
const Item BACK = own(Kind::RETURN, "", {"Back", "返回"});
const Item ANSWER_NO = own(Kind::ACTION, "", {"No", "否"});
const Item ANSWER_YES = own(Kind::ACTION, "", {"Yes", "是"});
const Label NOT_ACCEPTED{"Not accepted", "未接受"}, DONE{"Done", "完成"};

bool isStepped(const Item &item) { return item.enKind == Kind::INT || item.enKind == Kind::OPTION; }
BU_S32 lastOption(const Item &item) { return static_cast<BU_S32>(item.listOptions.size()) - 1; }

template <std::size_t N> void copy(BU_CHAR (&acTo)[N], const std::string &strFrom)
{
    acTo[strFrom.copy(acTo, N - 1)] = 0;
}
} // namespace

Navigator::Navigator(const Description &description, const Service &service, bool bTwoLenses, CanShow canShow)
    : m_description(description), m_service(service), m_bTwoLenses(bTwoLenses), m_canShow(std::move(canShow))
{
    open(false);
}

void Navigator::open(bool bAdvanced)
{
    m_bAdvanced = bAdvanced;
    m_stack.clear();
    m_strMessage.clear();
    enterPage(&m_description.listPages.front(), nullptr);
}

bool Navigator::press(Key enKey)
{
    m_strMessage.clear();
    if (m_edit) return editKey(enKey), true;
    const Item &item = selectedItem();
    if (enKey != Key::HOLD_LEFT && enKey != Key::HOLD_RIGHT) m_s32HoldSteps = 0;
    switch (enKey) {
    case Key::UP:
        return move(-1), true;
    case Key::DOWN:
        return move(1), true;
    case Key::LEFT:
        return step(item, -1);
    case Key::RIGHT:
        return step(item, 1);
    case Key::HOLD_LEFT:
        return hold(item, -1), true;
    case Key::HOLD_RIGHT:
        return hold(item, 1), true;
    case Key::HOLD_END:
        if (m_pending && !item.bManual) apply(item);
        return true;
    case Key::ENTER:
        return enter(item);
    case Key::BACK:
        return goBack();
    }
    return true;
}

bool Navigator::isVisible(const Item &item) const
{
    if (item.bTwoLenses && !m_bTwoLenses) return false;
    if (item.enKind == Kind::PAGE && m_description.page(item.strKey)->bAdvanced && !m_bAdvanced) return false;
    if (item.bOfRate && m_service.ask(OSD_MENU_GET_SHUTTER_E_SPEED) != item.strKey &&
        m_service.ask(OSD_MENU_GET_SHUTTER_E_VALUE) != item.strKey)
        return false;
    return std::ranges::all_of(item.when, [this](const Condition &condition) {
        const auto value = currentValue(m_description.listPages[condition.page].listItems[condition.item], m_service);
        const BU_S32 *ps32Value = value ? std::get_if<BU_S32>(&*value) : nullptr;
        return ps32Value && std::ranges::find(condition.listValues, *ps32Value) != condition.listValues.end();
    });
}

std::vector<const Item *> Navigator::items() const
{
    if (m_stack.back().pConfirm) return {&ANSWER_NO, &ANSWER_YES};
    std::vector<const Item *> list;
    for (const Item &item : m_stack.back().pPage->listItems)
        if (isVisible(item)) list.push_back(&item);
    if (m_stack.size() > 1) list.push_back(&BACK);
    return list;
}

/// The selected item; one that has gone hands over to the item in its place.
const Item &Navigator::selectedItem()
{
    Frame &frame = m_stack.back();
    const auto list = items();
    const auto entry = std::ranges::find(list, frame.pSelected);
    if (list.empty()) return BACK;
    if (entry == list.end()) {
        if (frame.pSelected) m_pending.reset();
        frame.selected = std::min(frame.selected, list.size() - 1);
    } else
        frame.selected = static_cast<std::size_t>(entry - list.begin());
    frame.pSelected = list[frame.selected];
    return *frame.pSelected;
}

bool Navigator::hasSubPage()
{
    const Item &item = selectedItem();
    return !m_edit && (item.enKind == Kind::PAGE || (item.enKind == Kind::ACTION && item.confirm));
}

void Navigator::move(BU_S32 s32By)
{
    Frame &frame = m_stack.back();
    if (!frame.pConfirm) m_pending.reset();
    const auto list = items();
    if (list.empty()) return;
    frame.selected = (frame.selected + list.size() + static_cast<std::size_t>(s32By)) % list.size();
    frame.pSelected = list[frame.selected];
}

void Navigator::enterPage(const Page *pPage, const Item *pConfirm)
{
    if (!pConfirm) m_pending.reset();
    m_edit.reset();
    m_stack.push_back({pPage, pConfirm, nullptr});
}

void Navigator::leavePage()
{
    m_stack.pop_back();
    m_pending.reset();
}

bool Navigator::goBack()
{
    if (m_stack.size() == 1) return false;
    leavePage();
    return true;
}

std::optional<BU_S32> Navigator::stepValue(const Item &item) const
{
    const auto value = currentValue(item, m_service);
    if (!value) return std::nullopt;
    return item.enKind == Kind::OPTION ? optionOf(item, *value) : std::get<BU_S32>(*value);
}

void Navigator::stepPending(const Item &item, BU_S32 s32By)
{
    const auto value = m_pending ? m_pending : stepValue(item);
    if (!value) return;
    m_pending = item.enKind == Kind::OPTION
                    ? std::clamp(*value + s32By, 0, lastOption(item))
                    : std::clamp(*value + s32By * item.stRange.s32Step, item.stRange.s32Min, item.stRange.s32Max);
}

/// Left and right: a value steps; what has none is opened or left.
bool Navigator::step(const Item &item, BU_S32 s32Direction)
{
    if (isStepped(item)) {
        stepPending(item, s32Direction);
        if (!item.bManual) apply(item);
        return true;
    }
    if (item.enKind == Kind::RETURN) return goBack();
    if (s32Direction > 0) return enter(item);
    if (m_stack.size() > 1) leavePage();
    return true;
}

void Navigator::hold(const Item &item, BU_S32 s32Direction)
{
    if (!isStepped(item)) return;
    const bool bLong = item.enKind == Kind::INT &&
                       (item.stRange.s32Max - item.stRange.s32Min) / item.stRange.s32Step > FAST_RANGE_STEPS;
    stepPending(item, s32Direction * (bLong && m_s32HoldSteps >= FAST_AFTER_STEPS ? FAST_TIMES : 1));
    ++m_s32HoldSteps;
}

bool Navigator::enter(const Item &item)
{
    switch (item.enKind) {
    case Kind::PAGE:
        enterPage(m_description.page(item.strKey), nullptr);
        break;
    case Kind::RETURN:
        return goBack();
    case Kind::OPTION:
        enterOption(item);
        break;
    case Kind::INT:
        if (m_pending) confirm(item);
        break;
    case Kind::TEXT:
        if (const auto value = currentValue(item, m_service)) m_edit.emplace(std::get<std::string>(*value));
        break;
    case Kind::ACTION:
        if (m_stack.back().pConfirm)
            answer(item);
        else
            confirm(item);
        break;
    case Kind::INFO:
        break;
    }
    return true;
}

/// Enter confirms what was chosen; without a choice it goes on to the next option.
void Navigator::enterOption(const Item &item)
{
    if (m_pending) return confirm(item);
    if (item.bManual) return;
    m_pending = (stepValue(item).value_or(-1) + 1) % (lastOption(item) + 1);
    apply(item);
}

void Navigator::confirm(const Item &item)
{
    if (item.confirm)
        enterPage(m_stack.back().pPage, &item);
    else
        apply(item);
}

void Navigator::answer(const Item &item)
{
    const Item &asked = *m_stack.back().pConfirm;
    m_stack.pop_back();
    if (&item == &ANSWER_YES) apply(asked);
    m_pending.reset();
}

void Navigator::editKey(Key enKey)
{
    switch (enKey) {
    case Key::UP:
        return m_edit->change(1);
    case Key::DOWN:
        return m_edit->change(-1);
    case Key::LEFT:
    case Key::HOLD_LEFT:
        return m_edit->move(-1);
    case Key::RIGHT:
    case Key::HOLD_RIGHT:
        return m_edit->move(1);
    case Key::ENTER:
        apply(selectedItem());
        break;
    case Key::BACK:
        break;
    case Key::HOLD_END:
        return;
    }
    m_edit.reset();
}

/// Hands the confirmed value to the service, and says so when the value did not become it.
void Navigator::apply(const Item &item)
{
    const auto wanted = m_pending;
    const std::string strWanted = m_edit ? m_edit->address() : "";
    if (isStepped(item) && (!wanted || wanted == stepValue(item))) return m_pending.reset();
    ITEM_NODE_S stNode = nodeOf(item);
    m_pending.reset();
    const BU_S32 s32Ret = m_service.pfnSetParam(&stNode);
    const bool bValue = isStepped(item)
                            ? stepValue(item) == wanted
                            : item.enKind != Kind::TEXT || currentValue(item, m_service) == Value(strWanted);
    if (s32Ret != 0 || !bValue)
        m_strMessage = text(NOT_ACCEPTED);
    else if (item.enKind == Kind::ACTION)
        m_strMessage = text(DONE);
}

ITEM_NODE_S Navigator::nodeOf(const Item &item) const
{
    ITEM_NODE_S st{};
    copy(st.acItemName, text(item.label));
    copy(st.acItemIndex, item.strKey);
    copy(st.acDataZone, item.strZone);
    if (item.confirm) copy(st.acMsgShow, text(*item.confirm));
    st.enLevel = static_cast<BU_S32>(m_stack.size()) - 1;
    st.bManualConfirm = item.bManual;
    st.bItemSelected = st.bVisible = BU_TRUE;
    st.bHasParent = m_stack.size() > 1;
    st.s32ItemNumPerLine = 1;
    st.enValType = VALUE_TYPE_E_NONE;
    if (item.enKind == Kind::INT) {
        st.enValType = VALUE_TYPE_E_INT32;
        st.unVal.stIntVal = {item.stRange, *m_pending, *m_pending};
    } else if (!item.listOptions.empty()) {
        st.enValType = VALUE_TYPE_E_OPT_TXT;
        TXT_VALUE_S &stText = st.unVal.stTxtVal = {};
        for (const Option &option : item.listOptions) {
            copy(stText.acValShow[stText.s32ValCnt], text(option.label));
            copy(stText.acValIndex[stText.s32ValCnt++], option.strWord);
        }
        stText.s32ValTmpCur = stText.s32ValSaveCur = m_pending.value_or(0);
    } else if (m_edit) {
        st.enValType = VALUE_TYPE_E_EDIT_TXT;
        st.unVal.stEditableVal = {};
        copy(st.unVal.stEditableVal.acCurVal, m_edit->address());
        copy(st.unVal.stEditableVal.acTmpVal, m_edit->address());
    }
    return st;
}
} // namespace menu
