#include "orv/appconfiguration.h"

#include "store/kinds.h"
#include "store/numbers.h"
#include "store/overlay.h"
#include "store/persistence.h"
#include "store/refresh.h"
#include "store/store.h"

#include <algorithm>

namespace Orv {

namespace {

using Property = iAppConfiguration::Property;

constexpr std::uint8_t kAllFields = 0xff;

float notificationValue(const std::vector<std::string>& values) {
    return values.empty() ? 0.0F : floatFromText(values.front());
}

/// Whether a text means to a field what the present one does, as 1016000 and 1.016e+06 do.
bool meansTheSame(const Property& property, std::size_t field, const std::string& text) {
    if (kindTraits(property.kind).cache == Cache::none)
        return false;
    auto before = property.values;
    auto after = before;
    after[field] = text;
    normaliseFields(property.kind, before);
    normaliseFields(property.kind, after);
    return before == after;
}

/// The field's text is no more what the cache prints and, if it means something else, no more what a
/// configuration gave, nor reset.
void replaceField(iAppConfiguration::Impl& store, std::size_t row, std::size_t field,
                  const std::string& text) {
    auto& record = store.records.own(row);
    if (record.property.values[field] == text)
        return;
    if (!meansTheSame(record.property, field, text)) {
        record.origins[field].value.reset();
        store.changes.keepFields(row, fieldBit(record.property.kind, field));
    }
    record.property.values[field] = text;
    record.isFlushed = false;
}

/// The text is behind the cache, which has what no configuration gave.
void outdateText(iAppConfiguration::Impl& store, std::size_t row) {
    auto& record = store.records.own(row);
    record.isFlushed = false;
    store.changes.keepFields(row, kAllFields);
    for (auto& origin : record.origins)
        origin.value.reset();
}

/// A list is reset as a whole, so a mark of its own level keeps all of it.
bool mayReset(const Record& record, std::size_t field) {
    const auto& flags = record.property.readonly;
    if (kindTraits(record.property.kind).storage == Storage::group)
        return field < flags.size() && flags[field] == 0;
    const auto isOwnLock = [](const Origin& origin) {
        return origin.lock == 0;
    };
    const bool isAllLocked = !flags.empty() && std::ranges::find(flags, 0) == flags.end();
    return (field == 0 || field < flags.size()) && !isAllLocked &&
           std::ranges::none_of(record.origins, isOwnLock);
}

void resizeFields(iAppConfiguration::Impl& store, std::size_t row, std::size_t count) {
    auto& record = store.records.own(row);
    if (count == record.property.values.size())
        return;
    record.isFlushed = false;
    if (kindTraits(record.property.kind).storage == Storage::list)
        store.changes.keepFields(row, kAllFields);
    record.property.values.resize(count);
    record.property.readonly.resize(count);
    record.origins.resize(count);
}

} // namespace

iAppConfiguration::iAppConfiguration() : impl_(std::make_unique<Impl>()), typed_(&impl_->typed) {
}

iAppConfiguration::~iAppConfiguration() = default;

iAppConfiguration& iAppConfiguration::instance() {
    static iAppConfiguration appConfiguration;
    return appConfiguration;
}

bool iAppConfiguration::load() {
    return load(std::string());
}

bool iAppConfiguration::load(const std::string& projectPath) {
    return loadStore(*impl_, projectPath);
}

bool iAppConfiguration::save() {
    return saveStore(*impl_);
}

RefreshResult iAppConfiguration::refresh() {
    return refreshStore(*impl_);
}

bool iAppConfiguration::reset(const std::string& key, std::size_t field) {
    const auto row = impl_->find(key);
    if (!row || !mayReset(impl_->records.look(*row), field))
        return false;
    Record wanted = impl_->records.look(*row);
    inherit(wanted, field, impl_->records.levels());
    impl_->notify(key, notificationValue(wanted.property.values));
    // A sink may have changed the property, or loaded.
    if (!mayReset(impl_->records.look(*row), field))
        return false;
    auto& record = impl_->aboutToChange(*row);
    inherit(record, field, impl_->records.levels());
    impl_->changes.noteReset(*row, fieldBit(record.property.kind, field));
    impl_->refreshCache(*row);
    return true;
}

bool iAppConfiguration::lastSaveFailed() const noexcept {
    return impl_->lastSaveFailed;
}

bool iAppConfiguration::getProperty(Property& property) const {
    const auto row = impl_->find(property.name);
    if (!row)
        return false;
    // The stored text is rewritten too, so that a number reads the same ever after, with six significant
    // digits.
    const auto& stored = impl_->lookAtPrinted(*row).property;
    property.readonly = stored.readonly;
    property.values = stored.values;
    property.defaults = stored.defaults;
    return true;
}

bool iAppConfiguration::setProperty(const Property& property) {
    const auto row = impl_->find(property.name);
    if (!row)
        return false;
    // Sinks are told of the attempt: before anything is stored, and also of a field that its lock will keep.
    impl_->notify(property.name, notificationValue(property.values));
    const auto& record = impl_->aboutToChange(*row);
    resizeFields(*impl_, *row, property.values.size());
    for (std::size_t i = 0; i < property.values.size(); ++i) {
        if (record.property.readonly[i] == 0)
            replaceField(*impl_, *row, i, property.values[i]);
    }
    if (impl_->cache.isCached(*row))
        impl_->refreshCache(*row);
    return true;
}

bool iAppConfiguration::setPropertyDefaults(const std::string& key, const std::vector<std::string>& values) {
    const auto row = impl_->find(key);
    if (!row)
        return false;
    auto& record = impl_->aboutToChange(*row);
    record.property.defaults = values;
    record.hasOwnDefaults = true;
    resizeFields(*impl_, *row, values.size());
    for (std::size_t i = 0; i < values.size(); ++i)
        replaceField(*impl_, *row, i, values[i]);
    if (!values.empty() && !values.front().empty()) {
        // The cache follows the notice; a sink that reads the text meanwhile must not bring the old number
        // back.
        record.isFlushed = true;
        impl_->notify(key, floatFromText(values.front()));
        // Unless a sink has set another one.
        if (impl_->records.look(*row).isFlushed)
            impl_->refreshCache(*row);
    }
    return true;
}

float iAppConfiguration::getNumber(std::string_view key) const noexcept {
    const auto row = findRow(key);
    return row ? typed_->numbers[*row] : 0.0F;
}

bool iAppConfiguration::setNumber(std::string_view key, float value) {
    const auto row = findRow(key);
    if (!row || !impl_->cache.hasNumber(*row))
        return false;
    impl_->aboutToChange(*row);
    impl_->cache.setNumber(*row, value);
    outdateText(*impl_, *row);
    impl_->notify(key, value);
    return true;
}

bool iAppConfiguration::getGraphics(std::string_view key, int& visible, int& selectable, int& color,
                                    int& fillStyle, int& lineStyle, int& lineThickness) const noexcept {
    const auto row = findRow(key);
    if (!row || !typed_->hasGraphics[*row])
        return false;
    const auto& graphics = typed_->graphics[*row];
    visible = graphics.visible;
    selectable = graphics.selectable;
    color = graphics.colour;
    fillStyle = graphics.fillStyle;
    lineStyle = graphics.lineStyle;
    lineThickness = graphics.lineThickness;
    return true;
}

bool iAppConfiguration::setGraphics(std::string_view key, int visible, int selectable, int color,
                                    int fillStyle, int lineStyle, int lineThickness) {
    const auto row = findRow(key);
    if (!row || !typed_->hasGraphics[*row])
        return false;
    impl_->aboutToChange(*row);
    impl_->cache.setGraphics(*row, {visible, selectable, color, fillStyle, lineStyle, lineThickness});
    outdateText(*impl_, *row);
    impl_->notify(key, static_cast<float>(visible));
    return true;
}

iAppConfiguration::Handle iAppConfiguration::handleOf(std::string_view key) const noexcept {
    const auto row = findRow(key);
    return row ? Handle(typed_->load << kRowBits | *row) : Handle();
}

bool iAppConfiguration::getIctColors(std::string_view name, int& color, int& textColor) const {
    int unused = 0;
    return getGraphics(std::string("ICT").append(name), unused, unused, color, textColor, unused, unused);
}

bool iAppConfiguration::setIctColors(std::string_view name, int color, int textColor) {
    return setGraphics(std::string("ICT").append(name), 0, 0, color, textColor, 0, 0);
}

bool iAppConfiguration::addSink(iEventSink* sink) {
    auto& sinks = impl_->sinks;
    if (!sink || std::ranges::find(sinks, sink) != sinks.end())
        return false;
    sinks.push_back(sink);
    return true;
}

bool iAppConfiguration::removeSink(iEventSink* sink) {
    auto& sinks = impl_->sinks;
    const auto found = std::ranges::find(sinks, sink);
    if (found == sinks.end())
        return false;
    sinks.erase(found);
    return true;
}

std::vector<std::string> iAppConfiguration::keys() const {
    std::vector<std::string> names;
    names.reserve(impl_->records.size());
    for (std::size_t row = 0; row < impl_->records.size(); ++row)
        names.emplace_back(catalogue()[row].key);
    return names;
}

std::vector<std::string> iAppConfiguration::workingDirectories() const {
    return impl_->directories;
}

std::string iAppConfiguration::valueDirectory(const std::string& key, std::size_t field) const {
    const auto* origin = impl_->originOf(key, field);
    return origin && origin->value ? impl_->records.levels()[*origin->value].directory() : std::string();
}

std::string iAppConfiguration::lockingDirectory(const std::string& key, std::size_t field) const {
    const auto* origin = impl_->originOf(key, field);
    return origin && origin->lock ? impl_->records.levels()[*origin->lock].directory() : std::string();
}

int iAppConfiguration::kindOf(std::string_view key) noexcept {
    const auto row = findRow(key);
    return row ? catalogue()[*row].kind : 0;
}

LockNote iAppConfiguration::lockNote(const std::string& key, std::size_t field) const {
    const auto* origin = impl_->originOf(key, field);
    const auto* statement =
        origin && origin->lock ? impl_->records.levels()[*origin->lock].find(*impl_->find(key)) : nullptr;
    return statement && field < statement->notes.size() ? statement->notes[field] : LockNote();
}

std::vector<std::string> iAppConfiguration::fieldNames(int kind) {
    return kind >= KindFlag && kind <= KindIctObject ? kindTraits(kind).fieldNames
                                                     : std::vector<std::string>();
}

} // namespace Orv
