#include "store/transfer.h"

#include "store/kinds.h"
#include "store/rowwriter.h"

#include <utility>

namespace Orv {

namespace {

/// The refused fields stay as unsaved as they were.
void settleGroup(Record& record, const std::vector<std::size_t>& refused) {
    auto saved = record.property.values;
    for (const std::size_t field : refused) {
        if (field < record.saved->size())
            saved[field] = (*record.saved)[field];
    }
    record.saved = std::move(saved);
}

} // namespace

std::vector<Transferred> writeChanges(const iAppConfiguration::Impl& store, IOvConfiguration& configuration) {
    std::vector<Transferred> rows;
    const Level* held = store.knowsWrittenLevel() ? &store.levels.front() : nullptr;
    StatementReader reader(configuration);
    for (std::size_t row = 0; row < store.records.size(); ++row) {
        if (!store.pending[row])
            continue;
        const RowWriter writer(store.records[row], held ? held->find(row) : nullptr);
        auto refused = writer.write(configuration);
        rows.push_back({row, reader.read(row), std::move(refused)});
    }
    return rows;
}

void restoreLevel(const Level& level, IOvConfiguration& configuration) {
    for (const auto& statement : level.statements) {
        const auto& row = catalogue()[statement.row];
        const auto& traits = kindTraits(row.kind);
        const std::string key(row.key);
        std::vector<std::string> texts;
        for (std::size_t i = 0; i < statement.texts.size(); ++i) {
            if (!statement.texts[i])
                continue;
            texts.push_back(*statement.texts[i]);
            if (traits.storage == Storage::group)
                configuration.writeAttribute(traits.path, traits.typeWord, key, traits.fieldNames[i],
                                             texts.back());
        }
        if (traits.storage == Storage::list)
            configuration.writeList(pathOf(row.kind, key), key, texts);
        else if (traits.storage == Storage::value && !texts.empty())
            configuration.writeValue(pathOf(row.kind, key), key, texts.front());
    }
}

void settle(iAppConfiguration::Impl& store, std::vector<Transferred> rows) {
    for (auto& [row, statement, refused] : rows) {
        auto& record = store.records[row];
        record.withdrawn = 0;
        store.settled.set(row);
        if (store.knowsWrittenLevel())
            store.levels.front().replace(row, std::move(statement));
        if (refused.empty()) {
            record.saved.reset();
            store.pending.reset(row);
        } else if (kindTraits(record.property.kind).storage == Storage::group) {
            settleGroup(record, refused);
        }
    }
}

} // namespace Orv
