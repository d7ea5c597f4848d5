#include "dialog/pages/borders/attributesgrid.h"

#include "dialog/widgets/stringconversion.h"

#include <QtCore/QSet>

#include <algorithm>

namespace ovsettings {

namespace {

constexpr int kNameColumn = 1;
constexpr int kValueColumn = 2;

/// Names that differ in case alone are one name in the file.
std::string nameWithoutCase(const std::string& name) {
    return toUtf8(toQString(name).toLower());
}

} // namespace

CAttributesGrid::CAttributesGrid(QWidget* parent) : GridWnd(parent) {
    setColumnCount(kValueColumn);
    setCellText(0, kNameColumn, tr("Name"));
    setCellText(0, kValueColumn, tr("Value"));
    showHeaders(true, false);
}

void CAttributesGrid::fill(const Attributes& attributes, const KnownValues& known,
                           std::vector<std::string> names) {
    known_.clear();
    for (const auto& [name, values] : known) {
        auto& choices = known_[nameWithoutCase(name)];
        for (const std::string& value : values) {
            if (std::ranges::find(choices, value) == choices.end())
                choices.push_back(value);
        }
    }
    names_ = std::move(names);
    offering_ = false;
    setRowCount(static_cast<int>(attributes.size()));
    int row = 0;
    for (const auto& [name, value] : attributes)
        showAttribute(++row, toQString(name), toQString(value));
    offerNames();
}

void CAttributesGrid::showAttribute(int row, const QString& name, const QString& value) {
    setCellStyle(row, kNameColumn, {.readOnly = true});
    setCellText(row, kNameColumn, name);
    const QStringList choices = choicesFor(name, value);
    setCellStyle(row, kValueColumn,
                 {.kind = choices.empty() ? GridCellKind::text : GridCellKind::dropDown,
                  .choices = choices,
                  .typed = true});
    setCellText(row, kValueColumn, value);
}

QStringList CAttributesGrid::choicesFor(const QString& name, const QString& value) const {
    const auto known = known_.find(nameWithoutCase(toUtf8(name)));
    if (known == known_.end())
        return {};
    QStringList choices{tr("<Empty>")};
    for (const std::string& choice : known->second)
        choices << toQString(choice);
    if (!value.isEmpty() && !choices.contains(value))
        choices << value;
    return choices;
}

void CAttributesGrid::offerNames() {
    QSet<QString> taken;
    for (int row = 1; row <= attributeCount(); ++row)
        taken.insert(cellText(row, kNameColumn).toLower());
    QStringList free;
    for (const std::string& name : names_) {
        const QString offered = toQString(name);
        if (!offered.isEmpty() && !taken.contains(offered.toLower())) {
            taken.insert(offered.toLower());
            free << offered;
        }
    }
    const bool offers = !free.empty();
    if (offers != offering_)
        setRowCount(attributeCount() + (offers ? 1 : 0));
    offering_ = offers;
    if (!offers)
        return;
    setCellStyle(
        rowCount(), kNameColumn,
        {.kind = GridCellKind::dropDown, .choices = free, .toolTip = tr("Choose a property to add")});
    setCellStyle(rowCount(), kValueColumn, {.readOnly = true, .enabled = false});
}

void CAttributesGrid::onCellChanged(int row, int column) {
    const QString text = cellText(row, column);
    if (column == kNameColumn) {
        offering_ = false;
        showAttribute(row, text, QString());
        offerNames();
    } else {
        showAttribute(row, cellText(row, kNameColumn), text == tr("<Empty>") ? QString() : text);
    }
}

Attributes CAttributesGrid::attributes() const {
    Attributes attributes;
    for (int row = 1; row <= attributeCount(); ++row)
        attributes.emplace_back(toUtf8(cellText(row, kNameColumn)), toUtf8(cellText(row, kValueColumn)));
    return attributes;
}

void CAttributesGrid::removeCurrentRow() {
    const int row = currentRow();
    if (row == 0 || isOffer(row))
        return;
    removeRow(row);
    offerNames();
}

void CAttributesGrid::layoutColumns() {
    const int names = clientWidth() * 2 / 5;
    setWidthOfColumn(kNameColumn, names);
    setWidthOfColumn(kValueColumn, clientWidth() - names);
}

} // namespace ovsettings
