#include "store/rowwriter.h"

#include <algorithm>

namespace Orv {

namespace {

std::vector<std::string> inNormalForm(int kind, std::vector<std::string> values) {
    normaliseFields(kind, values);
    return values;
}

bool isSet(std::uint8_t flag) {
    return flag != 0;
}

bool isLocked(const Record& record, std::size_t field) {
    return field < record.property.readonly.size() && isSet(record.property.readonly[field]);
}

/// By a level behind the user's.
bool isLockedFromAbove(const Record& record, std::size_t field) {
    return isLocked(record, field) && record.origins[field].lock.value_or(0) != 0;
}

} // namespace

RowWriter::RowWriter(const Record& record, const Change* change, const Statement* held)
    : record_(record),
      property_(record.property),
      traits_(kindTraits(property_.kind)),
      withdrawn_(change ? change->withdrawn : std::uint8_t{0}),
      held_(held),
      values_(inNormalForm(property_.kind, property_.values)),
      defaults_(inNormalForm(property_.kind, property_.defaults)),
      saved_(change ? inNormalForm(property_.kind, change->saved) : values_) {
}

std::vector<std::size_t> RowWriter::write(IOvConfiguration& configuration) const {
    return traits_.storage == Storage::group ? writeGroup(configuration) : writeKey(configuration);
}

bool RowWriter::isUnsaved(std::size_t field) const {
    if (isWithdrawn(field))
        return true;
    if (traits_.storage == Storage::list)
        return values_ != saved_;
    // No text, as in the default of some, and an empty one mean the same.
    return field < values_.size() && values_[field] != (field < saved_.size() ? saved_[field] : "");
}

bool RowWriter::isAnyRedundant() const {
    for (std::size_t field = 0; field < values_.size(); ++field) {
        if (isRedundant(field))
            return true;
    }
    return false;
}

bool RowWriter::isRedundant(std::size_t field) const {
    if (!held_)
        return false;
    if (traits_.storage != Storage::group)
        return !isAllLockedFromAbove() && isKeyRedundant();
    if (isLocked(record_, field))
        return false;
    return field < held_->fields.size() && held_->fields[field].text && isInherited(field) &&
           heldInNormalForm()[field] == defaults_[field];
}

bool RowWriter::isWithdrawn(std::size_t field) const {
    return (withdrawn_ & fieldBit(property_.kind, field)) != 0;
}

bool RowWriter::isInherited(std::size_t field) const {
    return field < defaults_.size() && values_[field] == defaults_[field];
}

std::vector<std::string> RowWriter::heldInNormalForm() const {
    return inNormalForm(property_.kind, held_->texts());
}

bool RowWriter::isKeyRedundant() const {
    return !held_->fields.empty() && !held_->fields.front().text->empty() && !held_->isAnyLocked() &&
           values_ == defaults_ && heldInNormalForm() == defaults_;
}

RowWriter::Fate RowWriter::fateOfKey() const {
    if (isWithdrawn(0))
        return Fate::withdrawn;
    if (!isUnsaved(0))
        return isRedundant(0) ? Fate::dropped : Fate::left;
    if (values_.empty() || values_.front().empty() || isAllLockedFromAbove())
        return Fate::refused;
    if (traits_.storage == Storage::value)
        return isLocked(record_, 0) ? Fate::refused : inheritedKey() ? Fate::withdrawn : Fate::written;
    // A list with a mark of its own stays, and says what the store says.
    const bool isMarked = std::ranges::any_of(property_.readonly, isSet);
    return inheritedKey() && !isMarked ? Fate::withdrawn : Fate::written;
}

bool RowWriter::isAllLockedFromAbove() const {
    std::size_t locked = 0;
    while (isLockedFromAbove(record_, locked))
        ++locked;
    return locked != 0 && locked == property_.readonly.size();
}

bool RowWriter::inheritedKey() const {
    return !defaults_.empty() && values_ == defaults_;
}

RowWriter::Fate RowWriter::fateOfAttribute(std::size_t field) const {
    if (isLockedFromAbove(record_, field))
        return isUnsaved(field) ? Fate::refused : Fate::left;
    if (isWithdrawn(field))
        return Fate::withdrawn;
    if (!isUnsaved(field))
        return isRedundant(field) ? Fate::dropped : Fate::left;
    return isInherited(field) && !isLocked(record_, field) ? Fate::withdrawn : Fate::written;
}

std::vector<std::size_t> RowWriter::writeKey(IOvConfiguration& configuration) const {
    const auto& path = pathOf(property_.kind, property_.name);
    const Fate fate = fateOfKey();
    if (fate == Fate::written && traits_.storage == Storage::list)
        configuration.writeList(path, property_.name, values_);
    else if (fate == Fate::written)
        configuration.writeValue(path, property_.name, values_.front());
    else if (fate == Fate::withdrawn)
        configuration.withdrawKey(path, property_.name, nullptr);
    else if (fate == Fate::dropped)
        dropKey(path, configuration);
    return fate == Fate::refused ? std::vector<std::size_t>{0} : std::vector<std::size_t>();
}

void RowWriter::dropKey(const std::string& path, IOvConfiguration& configuration) const {
    const auto texts = held_->texts();
    configuration.withdrawKey(path, property_.name, &texts);
}

std::vector<std::size_t> RowWriter::writeGroup(IOvConfiguration& configuration) const {
    std::vector<std::size_t> refused;
    const auto& names = traits_.fieldNames;
    for (std::size_t i = 0; i < std::min(names.size(), values_.size()); ++i) {
        const Fate fate = fateOfAttribute(i);
        if (fate == Fate::written)
            configuration.writeAttribute(traits_.path, traits_.typeWord, property_.name, names[i],
                                         values_[i]);
        else if (fate == Fate::withdrawn || fate == Fate::dropped)
            configuration.withdrawAttribute(traits_.path, traits_.typeWord, property_.name, names[i],
                                            fate == Fate::dropped ? &*held_->fields[i].text : nullptr);
        else if (fate == Fate::refused)
            refused.push_back(i);
    }
    return refused;
}

} // namespace Orv
