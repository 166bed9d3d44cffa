/// Field lists: one list describes a payload record once, and its byte image, its JSON form, its documentation and its
/// tests all follow from it. Constant data; thread: any.
#pragma once

#include "base/types.h"

#include <array>
#include <cstddef>
#include <cstring>
#include <span>
#include <string_view>
#include <type_traits>
#include <vector>

namespace web_layout
{
enum class Kind : BU_U8 {
    SIGNED,   ///< integer or enumeration of u32Size bytes
    UNSIGNED, ///< integer of u32Size bytes
    REAL,     ///< IEEE 754, 4 bytes
    SWITCH,   ///< 0 or 1: a BU_BOOL, or a bool of one byte
    TEXT,     ///< characters, terminated unless the array is full
    RECORD,   ///< a nested record
    VARIANT,  ///< a union: another field of the record says which member holds
    // Of answers and news, which have no byte image:
    NAME, ///< a text by its address, terminated; null: empty
    LIST  ///< a std::vector of records; left out while empty. WEB_LIST: the record is nothing but this list
};

struct Record;
struct Variant;

struct Field {
    const BU_CHAR *pcName;
    Kind enKind;
    BU_U32 u32Offset; ///< in the record
    BU_U32 u32Image;  ///< in the byte image of the record
    BU_U32 u32Size;   ///< bytes of one element; of a TEXT, the whole array
    BU_U32 u32Count;  ///< elements of an array, else 1
    BU_U32 u32Align;  ///< of an element in the record
    const Record *pstRecord;
    const Variant *pstVariant;
    std::string_view (*pfnElements)(const BU_CHAR *pcList); ///< of a LIST: the bytes of its records, u32Size each
};

/// A record: its fields in the order of their declaration.
struct Record {
    std::span<const Field> fields;
    BU_U32 u32Image; ///< bytes of its byte image
};

/// A member of a union, held while the selecting field has this value.
struct Alternative {
    BU_S32 s32Selector;
    Field stField;
};

struct Variant {
    const BU_CHAR *pcSelector; ///< the selecting field, a sibling of the union
    std::span<const Alternative> alternatives;
};

/// The fields of a record, as a std::array of Field: WEB_FIELDS gives them, beside the definition of the record.
template <class T> inline constexpr std::array<Field, 0> FIELDS{};
/// Bytes of the byte image, where that is not the size of the record.
template <class T> inline constexpr BU_U32 IMAGE_SIZE = sizeof(T);
template <class T> inline constexpr Record RECORD{FIELDS<T>, IMAGE_SIZE<T>};

/// The members of a union, as a std::array of Alternative, and the name of the selecting field: WEB_MEMBERS gives them.
template <class U> inline constexpr std::array<Alternative, 0> MEMBERS{};
template <class U> inline constexpr const BU_CHAR *SELECTOR = "";
template <class U> inline constexpr Variant VARIANT{SELECTOR<U>, MEMBERS<U>};

template <class M> struct ListOf {
};
template <class T> struct ListOf<std::vector<T>> {
    typedef T Element;
};
template <class M>
concept List = requires
{
    typename ListOf<M>::Element;
};

template <List M> std::string_view elements(const BU_CHAR *pcList)
{
    const M &list = *reinterpret_cast<const M *>(pcList);
    return {reinterpret_cast<const BU_CHAR *>(list.data()), list.size() * sizeof(list[0])};
}

template <class M> constexpr Kind kindOf()
{
    using Element = std::remove_all_extents_t<M>;
    if constexpr (List<M>)
        return Kind::LIST;
    else if constexpr (std::is_same_v<M, const BU_CHAR *>)
        return Kind::NAME;
    else if constexpr (std::is_same_v<Element, bool>)
        return Kind::SWITCH;
    else if constexpr (std::is_array_v<M> && std::is_same_v<Element, BU_CHAR>)
        return Kind::TEXT;
    else if constexpr (std::is_floating_point_v<Element>)
        return Kind::REAL;
    else if constexpr (std::is_union_v<Element>)
        return Kind::VARIANT;
    else if constexpr (std::is_class_v<Element>)
        return Kind::RECORD;
    else
        return std::is_unsigned_v<Element> ? Kind::UNSIGNED : Kind::SIGNED;
}

template <class M> consteval Field field(const BU_CHAR *pcName, std::size_t offset, BU_U32 u32Image, bool bSwitch)
{
    using Element = std::remove_extent_t<M>;
    constexpr Kind KIND = kindOf<M>();
    constexpr bool ARRAY = std::is_array_v<M> && KIND != Kind::TEXT;
    Field stField{pcName,
                  bSwitch ? Kind::SWITCH : KIND,
                  static_cast<BU_U32>(offset),
                  u32Image,
                  static_cast<BU_U32>(ARRAY ? sizeof(Element) : sizeof(M)),
                  static_cast<BU_U32>(ARRAY ? std::extent_v<M> : 1),
                  alignof(Element),
                  nullptr,
                  nullptr,
                  nullptr};
    if constexpr (List<M>) {
        stField.u32Size = sizeof(typename ListOf<M>::Element);
        stField.pstRecord = &RECORD<typename ListOf<M>::Element>;
        stField.pfnElements = elements<M>;
    }
    if constexpr (KIND == Kind::RECORD) stField.pstRecord = &RECORD<Element>;
    if constexpr (KIND == Kind::VARIANT) stField.pstVariant = &VARIANT<Element>;
    return stField;
}

/// Every field stands in the image where it stands in the record.
template <class T> consteval bool natural()
{
    for (const Field &stField : FIELDS<T>)
        if (stField.u32Offset != stField.u32Image) return false;
    return true;
}

/// The record has an image, no field of it is missing in its list, or listed in another place: only alignment leaves
/// gaps.
/// @param u32Head  bytes before the first field
template <class T> consteval bool complete(BU_U32 u32Head)
{
    BU_U32 u32End = u32Head;
    for (const Field &stField : FIELDS<T>) {
        if (stField.enKind >= Kind::NAME) return false;
        if (stField.u32Offset < u32End || stField.u32Offset >= u32End + stField.u32Align) return false;
        u32End = stField.u32Offset + stField.u32Size * stField.u32Count;
    }
    return u32End <= sizeof(T) && sizeof(T) < u32End + alignof(T);
}

/// The selecting field of every union is a sibling of it.
template <class T> consteval bool selectable()
{
    for (const Field &stField : FIELDS<T>) {
        if (stField.enKind != Kind::VARIANT) continue;
        bool bFound = false;
        for (const Field &stOther : FIELDS<T>)
            bFound = bFound || std::string_view{stOther.pcName} == stField.pstVariant->pcSelector;
        if (!bFound) return false;
    }
    return true;
}

inline void copyFields(const Record &stRecord, BU_CHAR *pcTo, const BU_CHAR *pcFrom, BU_U32 Field::*to,
                       BU_U32 Field::*from)
{
    for (const Field &stField : stRecord.fields) {
        BU_CHAR *pcTarget = pcTo + stField.*to;
        const BU_CHAR *pcSource = pcFrom + stField.*from;
        if (stField.enKind == Kind::RECORD)
            for (BU_U32 n = 0; n < stField.u32Count; ++n)
                copyFields(*stField.pstRecord, pcTarget + n * stField.u32Size, pcSource + n * stField.u32Size, to,
                           from);
        else if (stField.enKind == Kind::SWITCH && stField.u32Size == 1)
            *pcTarget = *pcSource != 0; // a bool holds nothing else
        else
            std::memcpy(pcTarget, pcSource, std::size_t{stField.u32Size} * stField.u32Count);
    }
}

/// Fills a record from its image of RECORD<T>.u32Image bytes.
template <class T> void load(T &stRecord, const BU_CHAR *pcImage)
{
    copyFields(RECORD<T>, reinterpret_cast<BU_CHAR *>(&stRecord), pcImage, &Field::u32Offset, &Field::u32Image);
}

/// Writes the fields into an image; the bytes between them stay as they are.
template <class T> void dump(const T &stRecord, BU_CHAR *pcImage)
{
    copyFields(RECORD<T>, pcImage, reinterpret_cast<const BU_CHAR *>(&stRecord), &Field::u32Image, &Field::u32Offset);
}
} // namespace web_layout

// Payloads have a table of virtual functions before their fields: both compilers lay them out as the images need it.
#define WEB_OFFSETS_BEGIN _Pragma("GCC diagnostic push") _Pragma("GCC diagnostic ignored \"-Winvalid-offsetof\"")
#define WEB_OFFSETS_END _Pragma("GCC diagnostic pop")

/// The fields of a record: WEB_FIELDS(type, WEB_FIELD(...), WEB_SWITCH(...), ...).
#define WEB_FIELDS(type, ...)                                                                                          \
    WEB_OFFSETS_BEGIN                                                                                                  \
    template <>                                                                                                        \
    inline constexpr auto web_layout::FIELDS<type> = [] {                                                              \
        using Here = type;                                                                                             \
        return std::array{__VA_ARGS__};                                                                                \
    }();                                                                                                               \
    WEB_OFFSETS_END static_assert(true)
/// An entry of a field list. @param image  offset in the byte image
#define WEB_FIELD(member, image)                                                                                       \
    web_layout::field<decltype(Here::member)>(#member, offsetof(Here, member), image, false)
/// The same for a BU_BOOL, which is 0 or 1.
#define WEB_SWITCH(member, image)                                                                                      \
    web_layout::field<decltype(Here::member)>(#member, offsetof(Here, member), image, true)

/// The only entry of a record that is nothing but a list.
#define WEB_LIST(member) web_layout::field<decltype(Here::member)>("", offsetof(Here, member), 0, false)

/// The members of a union: WEB_MEMBERS(type, selecting field, WEB_MEMBER(...), ...).
#define WEB_MEMBERS(type, selector, ...)                                                                               \
    template <> inline constexpr const BU_CHAR *web_layout::SELECTOR<type> = #selector;                                \
    template <>                                                                                                        \
    inline constexpr auto web_layout::MEMBERS<type> = [] {                                                             \
        using Here = type;                                                                                             \
        return std::array{__VA_ARGS__};                                                                                \
    }()
/// An entry of a member list. @param value  of the selecting field
#define WEB_MEMBER(value, member)                                                                                      \
    web_layout::Alternative { value, WEB_FIELD(member, 0) }

/// States that a nested record has so many bytes, all of them in its list.
#define WEB_NESTED_FORM(type, size)                                                                                    \
    static_assert(web_layout::natural<type>() && web_layout::complete<type>(0) && sizeof(type) == (size))
