// The command that tells an administrator why a value is what it is: explain.

#include "app/columns.h"
#include "app/commands.h"
#include "app/fieldtext.h"
#include "app/outcome.h"
#include "app/workspace.h"

#include <orv/configurationreport.h>

#include <algorithm>
#include <iostream>

namespace app {

namespace {

using Report = Orv::PropertyReport;

std::string fieldCaption(const Report& report, std::size_t field) {
    const std::vector<std::string> names = Orv::iAppConfiguration::fieldNames(report.property.kind);
    if (field < names.size())
        return names[field];
    if (report.property.kind == Orv::iAppConfiguration::KindList)
        return "entry " + std::to_string(field + 1);
    return {};
}

std::string shown(const std::string& value) {
    return value.empty() ? "(empty)" : value;
}

std::string builtInText(const Report& report, std::size_t field) {
    return field < report.builtInDefault.size() ? shown(report.builtInDefault[field]) : "(none)";
}

// The level at which a field was locked for those after it, as an index into the levels.
std::size_t lockingLevel(const Report& report, std::size_t field) {
    if (field >= report.origins.size() || report.origins[field].lockDirectory.empty())
        return report.levels.size();
    const auto level = std::ranges::find(report.levels, report.origins[field].lockDirectory,
                                         &Orv::LevelStatement::directory);
    return static_cast<std::size_t>(level - report.levels.begin());
}

/// A user's list is passed over as a whole where an entry is locked and the list has another length.
bool isDroppedList(const Report& report, std::size_t index) {
    const auto& values = report.levels[index].values;
    return report.property.kind == Orv::iAppConfiguration::KindList && index + 1 == report.levels.size() &&
           report.levels[index].present && values.size() != report.property.values.size() &&
           std::ranges::find(report.property.readonly, 1) != report.property.readonly.end();
}

std::vector<std::string> levelRow(const Report& report, std::size_t index, std::size_t field) {
    const Orv::LevelStatement& level = report.levels[index];
    if (!level.hasConfiguration)
        return {level.directory, "-", "no configuration"};
    const bool says = level.present && field < level.values.size() && level.values[field].has_value();
    const bool locks = level.present && field < level.locks.size() && level.locks[field];
    std::string remark;
    if (says && isDroppedList(report, index))
        remark = "ignored, for the list has locked entries and another length";
    else if (index > lockingLevel(report, field))
        remark = says ? "ignored, for the field is locked" : "";
    else if (locks)
        remark = "locks";
    return {level.directory, says ? shown(*level.values[field]) : "-", remark};
}

std::vector<std::string> verdictRow(const Report& report, std::size_t field) {
    if (field >= report.property.values.size())
        return {"in force", "(none)", ""};
    const Orv::FieldOrigin origin =
        field < report.origins.size() ? report.origins[field] : Orv::FieldOrigin{};
    std::string remark =
        "from " + (origin.valueDirectory.empty() ? "the built-in default" : origin.valueDirectory);
    if (!origin.lockDirectory.empty())
        remark += ", locked by " + origin.lockDirectory;
    return {"in force", shown(report.property.values[field]), remark};
}

// The administrator's words on the lock, a row each.
void appendLockNote(const Report& report, std::size_t field, std::vector<std::vector<std::string>>& rows) {
    if (field >= report.origins.size())
        return;
    const Orv::LockNote& note = report.origins[field].lockNote;
    if (!note.reason.empty())
        rows.push_back({"reason", note.reason, ""});
    if (!note.contact.empty())
        rows.push_back({"contact", note.contact, ""});
}

// As many as any level has a word on, so that the entries of a list that another level cut short are seen
// too.
std::size_t fieldCount(const Report& report) {
    std::size_t count =
        std::max({std::size_t{1}, report.property.values.size(), report.builtInDefault.size()});
    for (const Orv::LevelStatement& level : report.levels)
        count = std::max(count, level.values.size());
    return count;
}

void explain(std::ostream& out, const Report& report) {
    out << report.property.name << " (" << kindName(report.property.kind) << ")\n";
    for (std::size_t field = 0; field < fieldCount(report); ++field) {
        const std::string caption = fieldCaption(report, field);
        out << (caption.empty() ? "" : "\n" + caption + "\n");
        std::vector<std::vector<std::string>> rows{{"built-in default", builtInText(report, field), ""}};
        for (std::size_t level = 0; level < report.levels.size(); ++level)
            rows.push_back(levelRow(report, level, field));
        rows.push_back(verdictRow(report, field));
        appendLockNote(report, field, rows);
        writeColumns(out, rows, "  ");
    }
}

} // namespace

int runExplain(const Options& options, Arguments arguments) {
    if (arguments.size() != 1)
        return misuse("explain takes one key");
    Orv::iAppConfiguration configuration;
    if (!openToRead(options, configuration))
        return kRefused;

    const std::optional<Report> report = Orv::reportProperty(configuration, arguments.front());
    if (!report)
        return refuse("there is no key " + arguments.front());
    explain(std::cout, *report);
    return kDone;
}

} // namespace app
