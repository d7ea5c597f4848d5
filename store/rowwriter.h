#pragma once

#include "store/changes.h"
#include "store/kinds.h"
#include "store/level.h"
#include "store/record.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace Orv {

/// A record with values, defaults and what was saved in one spelling, and what the user's level said of it.
class RowWriter {
public:
    /// @param change null where nobody changed the row.
    /// @param held   what the user's level says; null where it does not mention the property.
    RowWriter(const Record& record, const Change* change, const Statement* held);

    /// @return the fields that were changed and may not be written.
    std::vector<std::size_t> write(IOvConfiguration& configuration) const;
    /// Whether a field is another than the last load, save or refresh left it. Any field of a list stands for
    /// all.
    bool isUnsaved(std::size_t field) const;
    /// Whether the user's level says what it inherits, which a save takes out.
    bool isAnyRedundant() const;

private:
    /// What is to become of a field in the file of the user's level.
    enum class Fate {
        left,      ///< as it stands there
        refused,   ///< as it stands there, although it was changed
        written,   ///< says what the store says
        withdrawn, ///< goes, for the store says what is inherited
        dropped,   ///< goes if it still says what it said, which is what is inherited
    };

    bool isRedundant(std::size_t field) const;
    bool isWithdrawn(std::size_t field) const;
    bool isInherited(std::size_t field) const;

    std::vector<std::string> heldInNormalForm() const;

    /// An empty value or list is neither written nor taken out.
    bool isKeyRedundant() const;
    Fate fateOfKey() const;
    bool isAllLockedFromAbove() const;
    bool inheritedKey() const;
    Fate fateOfAttribute(std::size_t field) const;
    std::vector<std::size_t> writeKey(IOvConfiguration& configuration) const;
    void dropKey(const std::string& path, IOvConfiguration& configuration) const;
    std::vector<std::size_t> writeGroup(IOvConfiguration& configuration) const;

    const Record& record_;
    const iAppConfiguration::Property& property_;
    const KindTraits& traits_;
    const std::uint8_t withdrawn_;
    const Statement* held_;
    const std::vector<std::string> values_;
    const std::vector<std::string> defaults_;
    const std::vector<std::string> saved_;
};

} // namespace Orv
