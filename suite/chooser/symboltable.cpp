#include "suite/chooser/symboltable.h"

#include "orv/symbolreader.h"
#include "platform/asciicase.h"

#include <QtCore/QStringList>

#include <algorithm>
#include <iterator>

namespace cldialog {

namespace {

std::string foldCase(const QString& text) {
    // A name may have its accents as characters of their own, as names of files on some systems do.
    return text.normalized(QString::NormalizationForm_C).toCaseFolded().toStdString();
}

void appendFolded(std::string& keys, std::string_view name) {
    const auto isAscii = [](char c) {
        return static_cast<unsigned char>(c) < 0x80;
    };
    if (std::ranges::all_of(name, isAscii))
        std::ranges::transform(name, std::back_inserter(keys), platform::toLower);
    else
        keys += foldCase(QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size())));
}

} // namespace

SymbolRange SymbolTable::append(std::vector<std::string> names) {
    const auto begin = static_cast<SymbolId>(names_.size());
    for (const std::string& name : names) {
        appendFolded(keys_, name);
        keyEnds_.push_back(keys_.size());
    }
    names_.insert(names_.end(), std::make_move_iterator(names.begin()), std::make_move_iterator(names.end()));
    return {begin, static_cast<SymbolId>(names_.size())};
}

std::string_view SymbolTable::key(SymbolId id) const {
    const std::size_t begin = id == 0 ? 0 : keyEnds_[id - 1];
    return std::string_view(keys_).substr(begin, keyEnds_[id] - begin);
}

SymbolQuery::SymbolQuery(const QString& text) : text_(foldCase(text.simplified())) {
    for (const QString& word : QString::fromStdString(text_).split(QLatin1Char(' '), Qt::SkipEmptyParts))
        words_.push_back(word.toStdString());
}

bool SymbolQuery::matches(std::string_view key) const {
    return std::ranges::all_of(
        words_, [key](const std::string& word) { return key.find(word) != std::string_view::npos; });
}

SymbolQuery::Nearness SymbolQuery::nearness(std::string_view key) const {
    const std::string_view name = key.substr(key.find(Orv::kSymbolSeparator) + 1);
    if (name == text_ || key == text_)
        return Nearness::exact;
    return name.starts_with(text_) || key.starts_with(text_) ? Nearness::beginning : Nearness::somewhere;
}

} // namespace cldialog
