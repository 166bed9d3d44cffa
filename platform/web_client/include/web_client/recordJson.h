/// Records as JSON, by their field lists alone. Pure functions; thread: any.
///
/// Numbers are numbers, also those of 64 bits; a SWITCH is true or false, and may be asked for as 0 or 1; a TEXT ends
/// before its last byte; an array is an array; a VARIANT is an object with the one member that its selecting field
/// names, or with none. A NAME is a text and a LIST an array, left out while it is empty.
#pragma once

#include "web/layout.h"

#include <string>
#include <string_view>

namespace web_client
{
/// Fills a record from an object. What the object does not name stays as it is.
/// @param pcRecord  the record; its texts are empty. After a fault it is filled in part
/// @return what is wrong with the text, a sentence; empty: nothing. Wrong is also what is nested too deeply, a field
/// twice, an unknown field, and a value that the field cannot hold
std::string readRecord(const web_layout::Record &stRecord, std::string_view strJson, BU_CHAR *pcRecord);

/// The object of a record, fields in the order of the list. Bytes that are no UTF-8 are replaced; a REAL that is no
/// number is null.
std::string writeRecord(const web_layout::Record &stRecord, const BU_CHAR *pcRecord);

/// A text as a JSON string with its quotation marks; bytes that are no UTF-8 are replaced.
std::string quoted(std::string_view strText);
} // namespace web_client
