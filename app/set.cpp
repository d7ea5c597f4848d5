// The command that writes: set.

#include "app/commands.h"
#include "app/declared.h"
#include "app/fieldtext.h"
#include "app/outcome.h"
#include "app/workspace.h"
#include "platform/printable.h"

#include <algorithm>
#include <iostream>
#include <set>

namespace app {

namespace {

using Property = Orv::iAppConfiguration::Property;

// "KEY" or "KEY, COLOR" for the field of a property in a message.
std::string fieldTitle(const Property& property, std::size_t field) {
    const std::vector<std::string> names = Orv::iAppConfiguration::fieldNames(property.kind);
    if (field < names.size())
        return property.name + ", " + names[field];
    if (property.kind == Orv::iAppConfiguration::KindList)
        return property.name + ", entry " + std::to_string(field + 1);
    return property.name;
}

std::string inQuotes(const std::string& text) {
    return '"' + text + '"';
}

std::string inQuotes(const std::vector<std::string>& texts) {
    std::string quoted;
    for (const std::string& text : texts)
        quoted += (quoted.empty() ? "" : " ") + inQuotes(text);
    return quoted.empty() ? "empty" : quoted;
}

std::optional<std::string> objectionToCount(const Property& present, Arguments values) {
    if (present.kind == Orv::iAppConfiguration::KindList)
        return std::nullopt;
    const std::size_t expected =
        std::max<std::size_t>(1, Orv::iAppConfiguration::fieldNames(present.kind).size());
    if (values.size() == expected)
        return std::nullopt;
    return misplacedOption(values).value_or(present.name + " has " + std::to_string(expected) +
                                            (expected == 1 ? " field" : " fields") + ", not " +
                                            std::to_string(values.size()));
}

std::optional<std::string> objectionToValues(const Property& present, Arguments values) {
    for (std::size_t field = 0; field < values.size(); ++field) {
        if (const auto objection = objectionToText(present.kind, field, values[field]))
            return fieldTitle(present, field) + " cannot be " + inQuotes(values[field]) + ": " + *objection;
    }
    return std::nullopt;
}

// A list of another length is dropped as a whole at the next load if any of its entries is locked.
bool wouldChange(const Property& present, std::size_t field, Arguments values) {
    return values.size() != present.values.size() ||
           !sameMeaning(present.kind, field, present.values[field], values[field]);
}

// A property with a locked field may be set as a whole if that field stays as it is; one that is all locked
// may not be set at all.
std::optional<std::string> objectionOfLocks(const Orv::iAppConfiguration& configuration,
                                            const Property& present, Arguments values) {
    const auto isLocked = [](std::uint8_t flag) {
        return flag != 0;
    };
    const auto objection = [&](std::size_t field) {
        return fieldTitle(present, field) + " is locked by " +
               configuration.lockingDirectory(present.name, field);
    };
    for (std::size_t field = 0; field < present.readonly.size(); ++field) {
        if (isLocked(present.readonly[field]) && wouldChange(present, field, values))
            return objection(field);
    }
    if (!present.readonly.empty() && std::ranges::all_of(present.readonly, isLocked))
        return objection(0);
    return std::nullopt;
}

// When it writes, the store passes over a value or list whose first field is empty. Named fields may be
// empty.
std::optional<std::string> objectionToEmptiness(const Property& present, Arguments values) {
    const bool named = !Orv::iAppConfiguration::fieldNames(present.kind).empty();
    if (named || (!values.empty() && !values.front().empty()))
        return std::nullopt;
    return present.name + " cannot be emptied, since an empty value is never written; it stays " +
           inQuotes(present.values);
}

bool changesAnything(const Property& present, Arguments values) {
    if (values.size() != present.values.size())
        return true;
    for (std::size_t field = 0; field < values.size(); ++field) {
        if (wouldChange(present, field, values))
            return true;
    }
    return false;
}

// What stays as it is need not be what the dialog would take: the user did not write it.
std::optional<std::string> objectionOfDeclaration(const Orv::iAppConfiguration& configuration,
                                                  const Property& present, Arguments values) {
    const Orv::SettingDeclaration& setting = *Orv::declarationOf(present.name);
    const Orv::Metrics::Unit unit = Orv::unitInUse(configuration);
    for (std::size_t field = 0; field < values.size(); ++field) {
        if (!wouldChange(present, field, values))
            continue;
        if (const auto objection = objectionOfDialog(setting, field, values[field], unit))
            return fieldTitle(present, field) + " cannot be " + inQuotes(values[field]) + ": " + *objection;
    }
    return std::nullopt;
}

void tellOfRounding(const Property& stored, Arguments values) {
    for (std::size_t field = 0; field < values.size(); ++field) {
        if (!sameMeaning(stored.kind, field, stored.values[field], values[field])) {
            std::cout << fieldTitle(stored, field) << ": " << platform::printable(values[field])
                      << " is stored as " << platform::printable(stored.values[field])
                      << " (six significant digits)\n";
        }
    }
}

int store(Orv::iAppConfiguration& configuration, const Property& present, Arguments values) {
    Property wanted(present.name);
    wanted.kind = present.kind;
    wanted.values.assign(values.begin(), values.end());
    configuration.setProperty(wanted);
    configuration.getProperty(wanted);

    std::set<std::string> complaints;
    bool isKnown = true; // what the load found was told then, and comes again as the handler is set
    const ScopedErrorHandler handler([&](const std::string& message) {
        if (complaints.insert(message).second && !isKnown)
            refuse(message);
    });
    isKnown = false;
    if (!configuration.save() || configuration.lastSaveFailed()) {
        return refuse(present.name + " could not be saved in " + configuration.workingDirectories().front() +
                      "; it stays " + inQuotes(present.values));
    }
    tellOfRounding(wanted, values);
    return kDone;
}

} // namespace

int runSet(const Options& options, Arguments arguments) {
    // Before the key alone: what is set may be any text.
    const bool isForced = !arguments.empty() && arguments.front() == "--force";
    if (isForced)
        arguments = arguments.subspan(1);
    if (arguments.empty())
        return misuse("set takes a key and its values");
    Orv::iAppConfiguration configuration;
    if (!openConfiguration(options, configuration))
        return kRefused;

    Property present(arguments.front());
    const Arguments values = arguments.subspan(1);
    if (!configuration.getProperty(present))
        return refuse("there is no key " + present.name);
    present.kind = Orv::iAppConfiguration::kindOf(present.name);
    if (const auto objection = objectionToCount(present, values))
        return misuse(*objection);
    if (const auto objection = objectionToValues(present, values))
        return refuse(*objection);
    if (const auto objection = objectionOfLocks(configuration, present, values))
        return refuse(*objection);
    if (!changesAnything(present, values))
        return kDone;
    if (const auto objection = objectionToEmptiness(present, values))
        return refuse(*objection);
    if (const auto objection = objectionOfDeclaration(configuration, present, values); objection && !isForced)
        return refuse(*objection);
    if (const auto ready = prepareToSave(configuration); !ready)
        return refuse(ready.errorText());
    tellMissingDirectories(configuration);
    return store(configuration, present, values);
}

} // namespace app
