#include "dialog/pages/borders/bordersmodel.h"

#include <set>

namespace ovsettings {

void BordersModel::load(Orv::IBorderSymbols& symbols) {
    rows_.load(symbols.GetTable());
    properties_.clear();
    modified_ = false;
}

bool BordersModel::follow(Orv::IBorderSymbols& symbols) {
    if (modified_)
        return rows_.follow(symbols.GetTable());
    load(symbols);
    return true;
}

std::string BordersModel::store(Orv::IBorderSymbols& symbols, const std::string& path) {
    const Orv::IBorderSymbols::Table table = symbols.GetTable();
    const BorderProperties::Properties properties = symbols.GetProperties();
    rows_.store(symbols.GetTable());
    symbols.GetProperties() = properties_.laidOver(properties);
    symbols.Save(path);
    std::string cause = symbols.GetSaveError();
    if (!cause.empty()) {
        symbols.GetTable() = table;
        symbols.GetProperties() = properties;
        return cause;
    }
    rows_.noteStored(symbols.GetTable());
    properties_.clear();
    modified_ = false;
    return {};
}

std::vector<std::size_t> BordersModel::setSymbol(std::size_t index, BorderSheet sheet,
                                                 const std::string& symbol) {
    modified_ = true;
    return rows_.setSymbol(index, sheet, symbol);
}

std::vector<std::size_t> BordersModel::dropSymbol(std::size_t index, BorderSheet sheet) {
    const BorderRow& row = rows_.at(index);
    if ((sheet == BorderSheet::first ? row.first : row.next).empty())
        return {};
    return setSymbol(index, sheet, {});
}

std::vector<std::size_t> BordersModel::addCustom(const std::string& key) {
    if (rows_.indexOf(key) < rows_.count())
        return {};
    modified_ = true;
    return rows_.add(key);
}

std::vector<std::size_t> BordersModel::removeCustom(std::size_t index) {
    modified_ = true;
    const std::size_t changed = rows_.remove(index);
    return changed < rows_.count() ? std::vector{changed} : std::vector<std::size_t>();
}

std::vector<std::string> BordersModel::symbols() const {
    std::set<std::string> taken{""};
    std::vector<std::string> symbols;
    for (std::size_t index = 0; index < rows_.count(); ++index) {
        for (const std::string& symbol : {rows_.at(index).first, rows_.at(index).next}) {
            if (taken.insert(symbol).second)
                symbols.push_back(symbol);
        }
    }
    return symbols;
}

Attributes BordersModel::properties(Orv::IBorderSymbols& symbols) const {
    return properties_.laidOver(symbols.GetProperties());
}

void BordersModel::setProperties(Orv::IBorderSymbols& symbols, const Attributes& edited) {
    if (properties_.take(symbols.GetProperties(), edited))
        modified_ = true;
}

} // namespace ovsettings
