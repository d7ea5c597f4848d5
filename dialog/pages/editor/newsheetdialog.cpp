#include "dialog/pages/editor/newsheetdialog.h"

#include "dialog/shell/internalpages.h"
#include "dialog/widgets/lockmark.h"
#include "dialog/widgets/messagebox.h"
#include "dialog/widgets/numbertext.h"
#include "dialog/widgets/radiobutton.h"
#include "dialog/widgets/stringconversion.h"
#include "orv/projectconfiguration.h"
#include "store/unitglue.h"
#include "ui_newsheetdialog.h"

#include <QtCore/QScopedValueRollback>

namespace ovsettings {

namespace {

using Orientation = NewSheetModel::Orientation;
using Part = NewSheetModel::Part;
using Side = NewSheetModel::Side;

const NewSheetModel::Borders* bordersOf(const Orv::CProjectConfiguration* projectConfig) {
    if (!projectConfig)
        return nullptr;
    auto* symbols = dynamic_cast<Orv::IBorderSymbols*>(projectConfig->borderSymbols);
    return symbols ? &symbols->GetTable() : nullptr;
}

} // namespace

CNewSheetDialog::CNewSheetDialog(QWidget* parent) : CFormPage(parent, internalPage("New Sheet")) {
}

CNewSheetDialog::~CNewSheetDialog() = default;

bool CNewSheetDialog::buildTemplate() {
    CFormPage::buildTemplate();
    connect(ui_->size, &QComboBox::currentIndexChanged, this, &CNewSheetDialog::sizeSelected);
    connect(ui_->width, &QLineEdit::textChanged, this, [this] { sideTyped(Side::width); });
    connect(ui_->height, &QLineEdit::textChanged, this, [this] { sideTyped(Side::height); });
    connect(ui_->landscape, &QRadioButton::clicked, this,
            [this] { orientationChosen(Orientation::landscape); });
    connect(ui_->portrait, &QRadioButton::clicked, this,
            [this] { orientationChosen(Orientation::portrait); });
    connect(ui_->addBorder, &QCheckBox::toggled, this, [this](bool on) { model_.setAddsBorder(on); });
    connect(ui_->enableBorders, &QCheckBox::toggled, this, [this](bool on) {
        model_.setEnablesBorders(on);
        updateFirstBorder();
    });
    connect(ui_->useFirstBorder, &QCheckBox::toggled, this,
            [this](bool on) { model_.setUsesFirstBorder(on); });
    return true;
}

bool CNewSheetDialog::OnInitDialog() {
    if (!appConfig_)
        return false;
    model_.load(*appConfig_, bordersOf(projectConfig_));
    showAll();
    return true;
}

bool CNewSheetDialog::onApply() {
    if (!isFilled())
        return true;
    if (!isValid())
        return false;
    model_.store(*appConfig_);
    return true;
}

/// The Borders page may have changed the list meanwhile, and other programs the rest.
bool CNewSheetDialog::onEnter() {
    if (isFilled())
        refill();
    return true;
}

DroppedEdits CNewSheetDialog::followConfiguration() {
    return isFilled() && model_.isOutdated(*appConfig_) ? refill() : DroppedEdits();
}

bool CNewSheetDialog::onLeave() {
    return checkSides();
}

bool CNewSheetDialog::isValid() {
    return checkSides();
}

bool CNewSheetDialog::isModified() const {
    return isFilled() && model_.isModified();
}

DroppedEdits CNewSheetDialog::refill() {
    DroppedEdits dropped = model_.refresh(*appConfig_, bordersOf(projectConfig_));
    for (const Part part : {Part::size, Part::sides, Part::orientation, Part::addsBorder,
                            Part::enablesBorders, Part::usesFirstBorder}) {
        for (QWidget* control : controlsOf(part))
            unmarkLocked(*control);
    }
    showAll();
    return dropped;
}

std::vector<QWidget*> CNewSheetDialog::controlsOf(Part part) const {
    switch (part) {
    case Part::size:
        return {ui_->size};
    case Part::sides:
        return {ui_->width, ui_->widthUnit, ui_->height, ui_->heightUnit};
    case Part::orientation:
        return {ui_->portrait, ui_->landscape};
    case Part::addsBorder:
        return {ui_->addBorder};
    case Part::enablesBorders:
        return {ui_->enableBorders};
    case Part::usesFirstBorder:
        break;
    }
    return {ui_->useFirstBorder};
}

void CNewSheetDialog::showAll() {
    showUnit();
    showSizes();
    showSelection();
    showSides();
    showFlags();
    showLocks();
}

void CNewSheetDialog::showUnit() {
    const Orv::Metrics::UnitTraits traits(model_.unit());
    for (QLabel* label : {ui_->widthUnit, ui_->heightUnit})
        label->setText(toQString(traits.Abbreviation()));
    for (QLineEdit* edit : {ui_->width, ui_->height})
        edit->setAccessibleDescription(toQString(traits.FullName()));
}

void CNewSheetDialog::showSizes() {
    QStringList labels;
    labels.reserve(static_cast<qsizetype>(model_.sizes().size()));
    for (const SheetSize& size : model_.sizes())
        labels.append(toQString(size.label));
    const QScopedValueRollback updating(updating_, true);
    ui_->size->clear();
    ui_->size->addItems(labels);
}

void CNewSheetDialog::showSelection() {
    const QScopedValueRollback updating(updating_, true);
    ui_->size->setCurrentIndex(model_.selected());
    checkRadioButton(model_.orientation() == Orientation::portrait ? *ui_->portrait : *ui_->landscape);
}

void CNewSheetDialog::showSides() {
    const QScopedValueRollback updating(updating_, true);
    const int precision = Orv::Metrics::UnitTraits(model_.unit()).Precision();
    ui_->width->setText(numberText(Orv::toDisplay(model_.width(), model_.unit()), precision));
    ui_->height->setText(numberText(Orv::toDisplay(model_.height(), model_.unit()), precision));
}

void CNewSheetDialog::showFlags() {
    ui_->addBorder->setChecked(model_.addsBorder());
    ui_->enableBorders->setChecked(model_.enablesBorders());
    ui_->useFirstBorder->setChecked(model_.usesFirstBorder());
}

void CNewSheetDialog::showLocks() {
    for (const auto& [part, field] : model_.locks()) {
        for (QWidget* control : controlsOf(part))
            markLocked(*control, *appConfig_, field.key, field.field);
    }
    updateFirstBorder();
}

void CNewSheetDialog::updateFirstBorder() {
    ui_->useFirstBorder->setEnabled(model_.offersFirstBorder());
}

void CNewSheetDialog::sizeSelected(int index) {
    if (updating_ || index < 0)
        return;
    model_.select(index);
    showSides();
}

void CNewSheetDialog::sideTyped(Side side) {
    if (updating_ || !isFilled())
        return;
    model_.typeSide(side, numberFromTyped(ui_->width->text()), numberFromTyped(ui_->height->text()));
    showSelection();
}

void CNewSheetDialog::orientationChosen(Orientation orientation) {
    if (!isFilled())
        return;
    model_.choose(orientation);
    showSides();
}

bool CNewSheetDialog::checkSides() {
    return !isFilled() || (checkSide(*ui_->height, tr("Incorrect sheet height")) &&
                           checkSide(*ui_->width, tr("Incorrect sheet width")));
}

bool CNewSheetDialog::checkSide(QLineEdit& edit, const QString& message) {
    if (NewSheetModel::isFit(toUtf8(edit.text())) || !isUsersToMend(edit))
        return true;
    showMessage(&edit, message);
    edit.setFocus();
    edit.selectAll();
    return false;
}

} // namespace ovsettings
