#include "suite/chooser/symbolpreview.h"

#include "orv/symbolreader.h"
#include "platform/plaintext.h"
#include "suite/libraries/centrallibrary.h"

#include <QtCore/QLocale>
#include <QtWidgets/QFormLayout>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLabel>
#include <QtWidgets/QTreeWidget>
#include <QtWidgets/QVBoxLayout>

#include <string_view>

namespace cldialog {

namespace {

constexpr qsizetype kMostText = 300;          ///< of characters of a line of the preview
constexpr std::size_t kMostProperties = 1000; ///< a file with more is not a symbol that anyone wants to read

/// Puts a text of any length into a label; the tool tip has all of it.
void setText(QLabel& label, const QString& text) {
    const QString shown = platform::inItsOrder(text);
    label.setText(shown.size() > kMostText ? shown.left(kMostText) + QChar(0x2026) : shown);
    label.setToolTip(platform::toToolTip(text));
}

} // namespace

SymbolPreview::SymbolPreview(QWidget* parent) : QWidget(parent), properties_(new QTreeWidget(this)) {
    auto* form = new QFormLayout;
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    const auto addRow = [this, form](const QString& caption) {
        auto* label = new QLabel(this);
        label->setTextFormat(Qt::PlainText);
        label->setTextInteractionFlags(Qt::TextSelectableByMouse);
        label->setWordWrap(true);
        QSizePolicy policy = label->sizePolicy();
        policy.setHorizontalPolicy(QSizePolicy::Ignored);
        label->setSizePolicy(policy);
        form->addRow(caption, label);
        return label;
    };
    name_ = addRow(tr("Name:"));
    library_ = addRow(tr("Library:"));
    description_ = addRow(tr("Description:"));
    pins_ = addRow(tr("Pins:"));

    properties_->setHeaderLabels({tr("Property"), tr("Value")});
    properties_->setRootIsDecorated(false);
    properties_->setUniformRowHeights(true);
    properties_->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    properties_->setAccessibleName(tr("Properties of the symbol"));
    auto* caption = new QLabel(tr("&Properties:"), this);
    caption->setBuddy(properties_);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addLayout(form);
    layout->addWidget(caption);
    layout->addWidget(properties_);
}

void SymbolPreview::clear() {
    for (QLabel* label : {name_, library_, description_, pins_})
        setText(*label, {});
    properties_->clear();
}

void SymbolPreview::show(const suite::CentralLibrary& library, const std::string& symbol) {
    clear();
    const std::string_view text(symbol);
    const auto separator = text.find(Orv::kSymbolSeparator);
    const bool hasLibrary = separator != std::string_view::npos;
    const std::string partition(hasLibrary ? text.substr(0, separator) : std::string_view());
    const std::string name(hasLibrary ? text.substr(separator + 1) : text);
    setText(*name_, QString::fromStdString(name));
    setText(*library_, QString::fromStdString(partition));
    const auto read = suite::readSymbol(library, partition, name);
    if (!read) {
        setText(*description_, tr("The symbol is not in the library, or its file cannot be read."));
        return;
    }
    setText(*description_, QString::fromStdString(read->description));
    setText(*pins_, QLocale().toString(static_cast<qulonglong>(read->pins)));
    QList<QTreeWidgetItem*> rows;
    for (const auto& [property, value] : read->properties) {
        if (static_cast<std::size_t>(rows.size()) == kMostProperties) {
            rows.push_back(new QTreeWidgetItem({QString(QChar(0x2026))}));
            break;
        }
        auto* row = new QTreeWidgetItem({QString::fromStdString(property), QString::fromStdString(value)});
        row->setToolTip(1, platform::toToolTip(row->text(1)));
        rows.push_back(row);
    }
    properties_->addTopLevelItems(rows);
}

} // namespace cldialog
