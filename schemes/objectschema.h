#pragma once

#include "ovsettings/export.h"
#include "platform/result.h"
#include "platform/xmldocument.h"
#include "platform/xmlelement.h"

#include <functional>
#include <list>
#include <map>
#include <string>
#include <string_view>

namespace ovsettings {

/// The colours of one kind of object, as texts "0xRRGGBB"; one that a file does not name is empty.
struct CObjectSchemaItem {
    std::string name;
    std::string color;
    std::string text;
};

/// The picture in memory of one file of a colour scheme (.ovc), which it reads or writes.
class OVSETTINGS_API CObjectSchema {
public:
    /// @param tell is given what the user is to know of a file that is read in spite of it.
    explicit CObjectSchema(std::function<void(const std::string& text)> tell = {});

    /// Reads a file; root and version are not looked at.
    /// @return false if it is no document. error() says why, and is empty if there is no such file.
    bool read(const std::string& path);
    /// As read, from the bytes of a file.
    bool parse(std::string bytes);
    const std::string& error() const { return error_; }

    /// @param section the element's name in a file that was read, "schematic" or "ict"; "OV" or "ICT" in a
    ///                scheme to be written. An item replaces one of the same name.
    void addItem(const std::string& section, CObjectSchemaItem item);
    /// @param name in any case; items are found whose names are in upper case. Null if there is none.
    const CObjectSchemaItem* item(std::string_view section, std::string_view name) const;

    /// Writes the items of the sections "OV" and "ICT", as "schematic" and "ict". After an error the file is
    /// what it was.
    platform::Result<> write(const std::string& path);

    /// True for the files in which earlier versions kept the colours of the printer.
    static bool isPrinterSchema(const platform::XmlDocument& document);

private:
    using Items = std::map<std::string, const CObjectSchemaItem*, std::less<>>;

    void readSchema(pugi::xml_node schema);
    platform::XmlElement writtenSection(const char* element, std::string_view section);

    std::map<std::string, Items, std::less<>> sections_;
    std::list<CObjectSchemaItem> items_;
    std::function<void(const std::string& text)> tell_;
    std::string error_;
};

/// The name that a scheme has for the object of a caption, in upper case.
OVSETTINGS_API std::string schemaItemName(std::string_view caption);

} // namespace ovsettings
