// What a description of the menu may hold; each fault is told with its place.
#include "description.h"

#include "config/config.h"
#include "util/json.h"
#include "values.h"
#include "wordTables.h"

#include <algorithm>
#include <initializer_list>
#include <map>

namespace menu
{
using util::Json;

namespace
{
constexpr std::size_t TEXT_MAX = sizeof(ITEM_NODE_S::acItemName) - 1; // every text of an item
constexpr std::size_t ITEM_MAX = 32, PAGE_MAX = 64;
constexpr BU_S32 TIMEOUT_MAX_S = 3600;

void allowOnly(const Json &json, std::initializer_list<std::string_view> keys)
{
    for (const auto &[strKey, value] : json.members())
        if (std::ranges::find(keys, strKey) == keys.end()) value.refuse("\"" + strKey + "\" has no meaning here");
}

/// A text, or English and Chinese.
Label readLabel(const Json &json)
{
    if (json.is(Json::Kind::TEXT)) return {json.text(TEXT_MAX), {}};
    if (json.items().size() != 2) json.refuse("must be a text, or English and Chinese");
    return {json.items()[0].text(TEXT_MAX), json.items()[1].text(TEXT_MAX)};
}

bool flagOf(const Json &json, std::string_view key)
{
    const Json *pFlag = json.find(key);
    return pFlag && pFlag->flag();
}

/// The options of a list, and whether they stand for numbers of a setting.
struct WordList {
    std::vector<Option> listOptions;
    bool bValues = true;
};
typedef std::map<std::string, WordList, std::less<>> WordLists;

std::vector<Option>::iterator wordIn(std::vector<Option> &listOptions, const Json &word)
{
    const auto option = std::ranges::find(listOptions, word.text(TEXT_MAX), &Option::strWord);
    if (option == listOptions.end()) word.refuse("does not know the word \"" + word.text(TEXT_MAX) + "\"");
    return option;
}

/// A part of another list: from a word on, without some words.
WordList partOf(const Json &json, const WordLists &lists)
{
    allowOnly(json, {"of", "from", "without"});
    const auto whole = lists.find(json["of"].text(TEXT_MAX));
    if (whole == lists.end()) json["of"].refuse("there is no list of that name above");
    WordList list = whole->second;
    if (const Json *pFrom = json.find("from"))
        list.listOptions.erase(list.listOptions.begin(), wordIn(list.listOptions, *pFrom));
    if (const Json *pWithout = json.find("without"))
        for (const Json &word : pWithout->items()) list.listOptions.erase(wordIn(list.listOptions, word));
    return list;
}

WordList readWords(const Json &json, const WordLists &lists)
{
    if (json.find("of")) return partOf(json, lists);
    allowOnly(json, {"table", "values", "labels"});
    const Json *pTable = json.find("table"), *pValues = json.find("values");
    const auto table = pTable ? wordTable(pTable->text(TEXT_MAX)) : std::span<const STR2ENUM_MAP_S>();
    if (pTable && table.empty()) pTable->refuse("there is no vocabulary table of that name");
    WordList list;
    list.bValues = pTable || pValues;
    for (const auto &[strWord, label] : json["labels"].members()) {
        if (strWord.empty() || strWord.size() > TEXT_MAX) label.refuse("the word must have 1 to 31 bytes");
        Option option{strWord, readLabel(label), 0};
        if (pTable) option.s32Value = sysStr2Enum(table.data(), static_cast<BU_S32>(table.size()), strWord.c_str());
        if (option.s32Value == INT32_MIN) label.refuse("the table does not hold the word \"" + strWord + "\"");
        if (pValues) option.s32Value = (*pValues)[strWord].number();
        list.listOptions.push_back(std::move(option));
    }
    return list;
}

void readRange(const Json &json, Item &item, const CFG_VALUE_INT_S *pstRow)
{
    if (!pstRow && !(json.find("min") && json.find("max"))) json.refuse("\"" + item.strKey + "\" needs min and max");
    const auto numberOr = [&](std::string_view key, BU_S32 s32Else) {
        const Json *pNumber = json.find(key);
        return pNumber ? pNumber->number() : s32Else;
    };
    VALUE_RANGE_S &st = item.stRange;
    st.s32Min = numberOr("min", pstRow ? pstRow->s32Min : 0);
    st.s32Max = numberOr("max", pstRow ? pstRow->s32Max : 0);
    st.s32Step = numberOr("step", pstRow ? pstRow->s32Step : 1);
    st.s32Def = pstRow ? pstRow->s32Def : st.s32Min;
    const std::string strRange = std::to_string(st.s32Min) + "..." + std::to_string(st.s32Max);
    if (st.s32Min >= st.s32Max) json.refuse("the range " + strRange + " is empty");
    if (st.s32Step < 1 || st.s32Step > st.s32Max - st.s32Min) json.refuse("no such step in the range " + strRange);
    if (pstRow && (st.s32Min < pstRow->s32Min || st.s32Max > pstRow->s32Max))
        json.refuse("the range " + strRange + " goes beyond that of the setting, " + std::to_string(pstRow->s32Min) +
                    "..." + std::to_string(pstRow->s32Max));
}

void readOptions(const Json &json, Item &item, const CFG_VALUE_INT_S *pstRow, const WordLists &lists)
{
    const Json &words = json["words"];
    const auto list = lists.find(words.text(TEXT_MAX));
    if (list == lists.end()) words.refuse("there is no list of words \"" + words.text(TEXT_MAX) + "\"");
    item.listOptions = list->second.listOptions;
    if (item.listOptions.empty() || item.listOptions.size() > MENU_OPTION_MAX)
        words.refuse("the list must have 1 to " + std::to_string(MENU_OPTION_MAX) + " words");
    if (!pstRow) return;
    if (!list->second.bValues) words.refuse("the words of a setting need values");
    for (const Option &option : item.listOptions)
        if (option.s32Value < pstRow->s32Min || option.s32Value > pstRow->s32Max)
            words.refuse("\"" + option.strWord + "\" (" + std::to_string(option.s32Value) +
                         ") is outside the range of the setting");
}

struct KindName {
    std::string_view strMember;
    Kind enKind;
};
constexpr KindName KINDS[] = {{"page", Kind::PAGE}, {"int", Kind::INT},   {"option", Kind::OPTION},
                              {"text", Kind::TEXT}, {"info", Kind::INFO}, {"action", Kind::ACTION}};

void readValue(const Json &json, Item &item, const WordLists &lists)
{
    const Json *pSetting = json.find("setting");
    const std::string strSetting = pSetting ? pSetting->text(TEXT_MAX) : item.strKey;
    CFG_VALUE_INT_S stRow{};
    const bool bRow = (pSetting || !hasReader(item.strKey)) && CFG_COM_GetIntParams(strSetting.c_str(), &stRow) == 0;
    if (!bRow && (pSetting || !hasReader(item.strKey))) json.refuse("\"" + strSetting + "\" is no setting");
    if (bRow) item.strSetting = strSetting;
    if (item.enKind == Kind::INT) readRange(json, item, bRow ? &stRow : nullptr);
    if (item.enKind == Kind::OPTION) readOptions(json, item, bRow ? &stRow : nullptr, lists);
    if (item.enKind == Kind::TEXT && bRow) json.refuse("\"" + strSetting + "\" is a number");
}

/// The condition's words become values once all items are known.
struct OpenCondition {
    const Json *pWhen;
    std::size_t page, item;
};

class Reader
{
public:
    Description read(const Json &root)
    {
        allowOnly(root, {"timeoutSeconds", "words", "pages"});
        m_result.s32TimeoutMs = root["timeoutSeconds"].number(1, TIMEOUT_MAX_S) * 1000;
        for (const auto &[strName, words] : root["words"].members()) m_lists[strName] = readWords(words, m_lists);
        const auto &pages = root["pages"].items();
        if (pages.empty() || pages.size() > PAGE_MAX) root["pages"].refuse("must have 1 to 64 pages");
        for (const Json &page : pages) readPage(page);
        resolveConditions();
        checkReferences(root["pages"]);
        return std::move(m_result);
    }

private:
    void readPage(const Json &json)
    {
        allowOnly(json, {"name", "label", "advanced", "items"});
        Page page{json["name"].text(TEXT_MAX), readLabel(json["label"]), flagOf(json, "advanced"), {}};
        if (m_result.page(page.strName)) json["name"].refuse("\"" + page.strName + "\" is there twice");
        const auto &items = json["items"].items();
        if (items.empty() || items.size() > ITEM_MAX) json["items"].refuse("must have 1 to 32 items");
        for (const Json &item : items) {
            page.listItems.push_back(readItem(item));
            if (const Json *pWhen = item.find("when"))
                m_conditions.push_back({pWhen, m_result.listPages.size(), page.listItems.size() - 1});
        }
        m_result.listPages.push_back(std::move(page));
    }

    Item readItem(const Json &json)
    {
        allowOnly(json,
                  {"page", "int", "option", "text", "info",    "action", "label",     "setting",   "zone",   "words",
                   "min",  "max", "step",   "unit", "confirm", "manual", "nextStart", "twoLenses", "ofRate", "when"});
        Item item;
        for (const KindName &st : KINDS)
            if (const Json *pKey = json.find(st.strMember)) {
                if (!item.strKey.empty()) pKey->refuse("an item is of one kind");
                item.enKind = st.enKind;
                item.strKey = pKey->text(TEXT_MAX);
            }
        if (item.strKey.empty()) json.refuse("is no item: page, int, option, text, info or action");
        item.label = readLabel(json["label"]);
        item.bManual = flagOf(json, "manual");
        item.bNextStart = flagOf(json, "nextStart");
        item.bTwoLenses = flagOf(json, "twoLenses");
        item.bOfRate = flagOf(json, "ofRate");
        if (const Json *pUnit = json.find("unit")) item.strUnit = pUnit->text(8);
        if (const Json *pConfirm = json.find("confirm")) item.confirm = readLabel(*pConfirm);
        readZone(json, item);
        if (item.enKind == Kind::INT || item.enKind == Kind::OPTION || item.enKind == Kind::TEXT)
            readValue(json, item, m_lists);
        if (item.enKind == Kind::ACTION && json.find("words")) readOptions(json, item, nullptr, m_lists);
        if (item.enKind == Kind::INFO && !hasInfo(item.strKey)) json.refuse("nothing tells \"" + item.strKey + "\"");
        return item;
    }

    static void readZone(const Json &json, Item &item)
    {
        const Json *pZone = json.find("zone");
        if (!pZone) return;
        item.strZone = pZone->text(TEXT_MAX);
        constexpr std::string_view ZONES[] = {"IMAGE", "EXPOSURE", "WBLANCE", "NETWORK"};
        if (std::ranges::find(ZONES, item.strZone) == std::end(ZONES)) pZone->refuse("there is no such data zone");
    }

    /// The place of the first option item with that key.
    std::optional<Condition> placeOf(const std::string &strKey) const
    {
        for (std::size_t p = 0; p < m_result.listPages.size(); ++p)
            for (std::size_t i = 0; i < m_result.listPages[p].listItems.size(); ++i) {
                const Item &item = m_result.listPages[p].listItems[i];
                if (item.enKind == Kind::OPTION && item.strKey == strKey) return Condition{p, i, {}};
            }
        return std::nullopt;
    }

    void resolveConditions()
    {
        for (const OpenCondition &open : m_conditions)
            for (const auto &[strKey, words] : open.pWhen->members()) {
                auto condition = placeOf(strKey);
                if (!condition) words.refuse("\"" + strKey + "\" is no option item");
                auto listOptions = m_result.listPages[condition->page].listItems[condition->item].listOptions;
                for (const Json &word : words.items())
                    condition->listValues.push_back(wordIn(listOptions, word)->s32Value);
                m_result.listPages[open.page].listItems[open.item].when.push_back(*std::move(condition));
            }
    }

    /// Every page but the first is reached from exactly one item.
    void checkReferences(const Json &pages) const
    {
        std::map<std::string, BU_S32> references;
        for (std::size_t p = 0; p < m_result.listPages.size(); ++p)
            for (std::size_t i = 0; i < m_result.listPages[p].listItems.size(); ++i) {
                const Item &item = m_result.listPages[p].listItems[i];
                if (item.enKind != Kind::PAGE) continue;
                const Json &json = pages.items()[p]["items"].items()[i];
                if (!m_result.page(item.strKey)) json.refuse("there is no page \"" + item.strKey + "\"");
                if (++references[item.strKey] > 1) json.refuse("page \"" + item.strKey + "\" is reached already");
            }
        for (std::size_t p = 0; p < m_result.listPages.size(); ++p)
            if ((references[m_result.listPages[p].strName] == 0) != (p == 0))
                pages.items()[p].refuse(p == 0 ? "the first page cannot be opened" : "no item opens this page");
    }

    Description m_result;
    WordLists m_lists;
    std::vector<OpenCondition> m_conditions;
};
} // namespace

const Page *Description::page(const std::string &strName) const
{
    const auto entry = std::ranges::find(listPages, strName, &Page::strName);
    return entry == listPages.end() ? nullptr : &*entry;
}

Description readDescription(std::string_view text)
{
    const Json root = Json::parse(text); // outlives the reader's pointers into it
    return Reader().read(root);
}
} // namespace menu
