/// The open menu: which page, which item, which value is being changed. Keys go in, a view comes out; confirmed values
/// go to the service. One thread at a time; time and drawing are its owner's.
#pragma once

#include "addressEditor.h"
#include "values.h"
#include "view.h"

#include <functional>

namespace menu
{
enum class Key { UP, DOWN, LEFT, RIGHT, ENTER, BACK, HOLD_LEFT, HOLD_RIGHT, HOLD_END };

class Navigator
{
public:
    /// Whether the fonts have every character of a text.
    typedef std::function<bool(const std::string &)> CanShow;

    /// @param description, service  outlive it
    Navigator(const Description &description, const Service &service, bool bTwoLenses, CanShow canShow);

    void open(bool bAdvanced); ///< on the first page
    /// @return false: the menu closes
    bool press(Key enKey);
    /// @param rows  that fit a page
    View view(std::size_t rows);
    bool hasSubPage(); ///< whether enter on the selected item leads to a page

private:
    struct Frame {
        const Page *pPage;
        const Item *pConfirm;     // the page asks about this item; null: an ordinary page
        const Item *pSelected;    // null: the first one
        std::size_t selected = 0; // its place, for when it is gone
        std::size_t first = 0;    // the first one in sight
    };

    bool isVisible(const Item &item) const;
    std::vector<const Item *> items() const;
    const Item &selectedItem();
    std::string text(const Label &label) const;
    Value pendingValue(const Item &item) const; ///< while there is one
    std::string valueText(const Item &item, const Value &value) const;
    /// A number, or the index of an option.
    std::optional<BU_S32> stepValue(const Item &item) const;

    void move(BU_S32 s32By);
    void enterPage(const Page *pPage, const Item *pConfirm);
    void leavePage();
    bool goBack();
    bool step(const Item &item, BU_S32 s32Direction);
    void hold(const Item &item, BU_S32 s32Direction);
    void stepPending(const Item &item, BU_S32 s32By);
    bool enter(const Item &item);
    void enterOption(const Item &item);
    void answer(const Item &item);
    void editKey(Key enKey);

    void confirm(const Item &item);
    void apply(const Item &item);
    ITEM_NODE_S nodeOf(const Item &item) const;

    Row rowOf(const Item &item);
    void showValue(const Item &item, Row &row) const;
    std::string footOf(const Item &item) const;

    const Description &m_description;
    const Service &m_service;
    bool m_bTwoLenses, m_bAdvanced = false;
    CanShow m_canShow;
    std::vector<Frame> m_stack;
    std::optional<BU_S32> m_pending; // of the selected item
    BU_S32 m_s32HoldSteps = 0;
    std::optional<AddressEditor> m_edit;
    std::string m_strMessage; // until the next key
};
} // namespace menu
