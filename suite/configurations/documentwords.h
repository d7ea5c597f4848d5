#pragma once

/// The words of a configuration file.
namespace suite::words {

constexpr const char* kRoot = "configuration";
constexpr const char* kSection = "section";
constexpr const char* kPath = "path";
constexpr const char* kValue = "value";
constexpr const char* kList = "list";
constexpr const char* kItem = "item";
constexpr const char* kGroup = "group";
constexpr const char* kType = "type";
constexpr const char* kAttribute = "attribute";
constexpr const char* kName = "name";
constexpr const char* kLocked = "locked";
constexpr const char* kEmpty = "empty";
constexpr const char* kReason = "reason";
constexpr const char* kContact = "contact";
constexpr const char* kEncoding = "encoding";
constexpr const char* kBase64 = "base64";

} // namespace suite::words
