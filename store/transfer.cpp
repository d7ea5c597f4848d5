#include "store/transfer.h"

#include "store/catalogue.h"
#include "store/kinds.h"
#include "store/rowwriter.h"

#include <utility>

namespace Orv {

namespace {

/// The refused fields stay as unsaved as they were.
void settleGroup(const std::vector<std::size_t>& refused, const std::vector<std::string>& values,
                 Change& change) {
    auto saved = values;
    for (const std::size_t field : refused) {
        if (field < change.saved.size())
            saved[field] = change.saved[field];
    }
    change = {std::move(saved)};
}

} // namespace

std::vector<Transferred> writeChanges(iAppConfiguration::Impl& store, IOvConfiguration& configuration) {
    std::vector<Transferred> rows;
    StatementReader reader(configuration);
    for (const std::size_t row : store.changes.pendingRows()) {
        const RowWriter writer(store.lookAtPrinted(row), store.changes.find(row), store.heldStatement(row));
        auto refused = writer.write(configuration);
        rows.push_back({row, reader.read(row), std::move(refused)});
    }
    return rows;
}

void restoreLevel(const Level& level, IOvConfiguration& configuration) {
    for (const auto& statement : level.statements()) {
        const auto& row = catalogue()[statement.row];
        const auto& traits = kindTraits(row.kind);
        const std::string key(row.key);
        for (std::size_t i = 0; i < statement.fields.size() && traits.storage == Storage::group; ++i) {
            if (const auto& text = statement.fields[i].text)
                configuration.writeAttribute(traits.path, traits.typeWord, key, traits.fieldNames[i], *text);
        }
        if (traits.storage == Storage::list)
            configuration.writeList(pathOf(row.kind, key), key, statement.texts());
        else if (traits.storage == Storage::value && !statement.fields.empty())
            configuration.writeValue(pathOf(row.kind, key), key, *statement.fields.front().text);
    }
}

void settle(iAppConfiguration::Impl& store, std::vector<Transferred>&& rows) {
    for (auto& [row, statement, refused] : rows) {
        const auto values = store.lookAtPrinted(row).property.values;
        const auto* change = store.changes.find(row);
        if (change && !refused.empty()) {
            Change rest = *change;
            rest.withdrawn = 0;
            if (kindTraits(catalogue()[row].kind).storage == Storage::group)
                settleGroup(refused, values, rest);
            store.changes.set(row, std::move(rest));
        } else {
            store.changes.drop(row);
        }
        store.changes.settle(row);
        if (store.knowsWrittenLevel())
            store.records.replaceStatement(row, std::move(statement));
    }
}

} // namespace Orv
