// The reader of colour schema files.

#include "fuzz/support.h"
#include "schemes/objectschema.h"

using fuzz::require;

namespace {

constexpr int kMostTold = 10;

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    int told = 0;
    ovsettings::CObjectSchema schema([&told](const std::string&) { ++told; });
    const bool isDocument = schema.parse(std::string(fuzz::textOf(data, size)));
    require(isDocument == schema.error().empty());
    require(told <= kMostTold && (isDocument || told == 0));
    for (const char* name : {"Net", "Annotation", "Unplaced component"}) {
        for (const char* section : {"schematic", "ict"}) {
            if (const auto* item = schema.item(section, ovsettings::schemaItemName(name)))
                require(isDocument && item->name == ovsettings::schemaItemName(name));
        }
    }
    if (const auto document = platform::XmlDocument::parse(std::string(fuzz::textOf(data, size))))
        ovsettings::CObjectSchema::isPrinterSchema(*document);
    return 0;
}
