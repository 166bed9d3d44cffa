/// The description of the menu: pages, items, the words of options. Read once from menu.json and checked whole, so that
/// nothing in it can fail later.
#pragma once

#include "camera/menuLibrary.h"

#include <optional>
#include <string>
#include <vector>

namespace menu
{
/// A text in the menu's languages.
struct Label {
    std::string strEnglish, strChinese; ///< Chinese may be empty: English stands in
    bool operator==(const Label &) const = default;
};

struct Option {
    std::string strWord; ///< what the setter takes
    Label label;
    BU_S32 s32Value = 0; ///< of the setting
};

enum class Kind {
    PAGE,   ///< opens a page
    INT,    ///< a number in a range
    OPTION, ///< one of several words
    TEXT,   ///< an IPv4 address
    INFO,   ///< tells something
    ACTION, ///< does something
    RETURN  ///< a page back; made by the menu, not described
};

/// An option item that must have one of these values. Its place in the description.
struct Condition {
    std::size_t page = 0, item = 0;
    std::vector<BU_S32> listValues;
};

struct Item {
    Kind enKind = Kind::RETURN;
    std::string strKey;     ///< handed to the service; of a page the page's name; of an info what it tells
    std::string strSetting; ///< row that holds the value; empty: the value comes from elsewhere (see values.h)
    Label label;
    std::string strZone;
    std::string strUnit;
    std::optional<Label> confirm; ///< question asked before the value counts
    bool bManual = false;         ///< a stepped value counts only once it is entered
    bool bNextStart = false;      ///< shows the stored value: it runs from the next start on
    bool bTwoLenses = false;      ///< only on a model with a second lens
    bool bOfRate = false;         ///< only while the service names this key as the one of the present frame rate
    std::vector<Option> listOptions;
    VALUE_RANGE_S stRange{};
    std::vector<Condition> when; ///< the item is there while all of them hold
};

struct Page {
    std::string strName;
    Label label;
    bool bAdvanced = false; ///< reached from the advanced menu only
    std::vector<Item> listItems;
};

struct Description {
    BU_S32 s32TimeoutMs = 0;     ///< the menu closes when no key is pressed for so long
    std::vector<Page> listPages; ///< the first one is where the menu opens

    const Page *page(const std::string &strName) const;
};

/// @throws util::JsonFault
Description readDescription(std::string_view text);
} // namespace menu
