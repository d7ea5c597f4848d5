#include "dialog/pages/editor/newsheetdialog.h"

#include "dialog/widgets/bindings.h"
#include "dialog/widgets/lockmark.h"
#include "dialog/widgets/messagebox.h"
#include "dialog/widgets/numbertext.h"
#include "dialog/widgets/radiobutton.h"
#include "dialog/widgets/stringconversion.h"
#include "orv/projectconfiguration.h"
#include "store/appcfg.h"
#include "store/numbers.h"
#include "store/unitglue.h"
#include "ui_newsheetdialog.h"

#include <QtCore/QScopedValueRollback>

#include <algorithm>
#include <utility>

namespace ovsettings {

namespace {

constexpr unsigned kTemplate = 139;

constexpr const char* kSizeKey = "SHEETSIZE";
constexpr const char* kOrientationKey = "ORIENTATION";
constexpr const char* kAddBorderKey = "DEFSHEET";
constexpr const char* kEnableBordersKey = "DEFMETHOD";
constexpr const char* kFirstBorderKey = "DEF_USESHEET1";

constexpr long kPortrait = 1;
constexpr int kShortestSide = 1;
constexpr int kLongestSide = 100000000;

const Orv::IBorderSymbols::Table* borderTable(const Orv::CProjectConfiguration* projectConfig) {
    if (!projectConfig)
        return nullptr;
    auto* symbols = dynamic_cast<Orv::IBorderSymbols*>(projectConfig->borderSymbols);
    return symbols ? &symbols->GetTable() : nullptr;
}

} // namespace

CNewSheetDialog::CNewSheetDialog(QWidget* parent)
    : CPage(parent, kTemplate, "New Sheet", "OV_SETUP_SETTINGS_SCH_ED_NEW_SHEETS"),
      ui_(std::make_unique<Ui::CNewSheetDialog>()) {
}

CNewSheetDialog::~CNewSheetDialog() = default;

bool CNewSheetDialog::buildTemplate() {
    ui_->setupUi(this);
    connect(ui_->size, &QComboBox::currentIndexChanged, this, &CNewSheetDialog::sizeSelected);
    connect(ui_->width, &QLineEdit::textChanged, this, [this] { sideTyped(*ui_->width, width_); });
    connect(ui_->height, &QLineEdit::textChanged, this, [this] { sideTyped(*ui_->height, height_); });
    connect(ui_->landscape, &QRadioButton::clicked, this,
            [this] { orientationChosen(Orientation::landscape); });
    connect(ui_->portrait, &QRadioButton::clicked, this,
            [this] { orientationChosen(Orientation::portrait); });
    connect(ui_->enableBorders, &QCheckBox::toggled, this, &CNewSheetDialog::updateFirstBorder);
    return true;
}

bool CNewSheetDialog::OnInitDialog() {
    if (!appConfig_)
        return false;
    unit_ = Orv::getConfiguredUnit(*appConfig_);
    rebuild();
    return true;
}

bool CNewSheetDialog::onApply() {
    if (!isFilled())
        return true;
    if (!isValid())
        return false;
    const int selected = ui_->size->currentIndex();
    if (selected >= kFirstBorder && selected < customIndex()) {
        const auto& sides = sizes_[static_cast<std::size_t>(selected)].storedSides;
        Orv::setValues(*appConfig_, kCustomSizeKey, {sides.begin(), sides.end()});
    } else if (selected == customIndex()) {
        // The lengths behind the texts: what the user left alone is not rounded to what was shown of it.
        customSize().first = width_;
        customSize().second = height_;
        Orv::setValues(*appConfig_, kCustomSizeKey, {Orv::lengthToText(width_), Orv::lengthToText(height_)});
    }
    // What names no size stays as it is until the user chooses one. That is meant.
    if (selected >= 0)
        Orv::setValue(*appConfig_, kSizeKey, Orv::integerToText(std::min(selected, kFirstBorder)));
    Orv::setValue(*appConfig_, kOrientationKey, flagText(orientation() == Orientation::portrait));
    Orv::setValue(*appConfig_, kAddBorderKey, flagText(ui_->addBorder->isChecked()));
    Orv::setValue(*appConfig_, kEnableBordersKey, flagText(ui_->enableBorders->isChecked()));
    Orv::setValue(*appConfig_, kFirstBorderKey,
                  flagText(ui_->enableBorders->isChecked() && ui_->useFirstBorder->isChecked()));
    unchanged_ = state();
    stored_ = readAll();
    return true;
}

bool CNewSheetDialog::onEnter() {
    if (isFilled())
        refill();
    return true;
}

DroppedEdits CNewSheetDialog::followConfiguration() {
    return isFilled() && readAll() != stored_ ? refill() : DroppedEdits();
}

/// The Borders page may have changed the list meanwhile, and other programs the rest. All is built anew, yet
/// what the user has not stored stays. That is meant.
DroppedEdits CNewSheetDialog::refill() {
    const State shown = state();
    const State before = unchanged_;
    const Orv::Metrics::Unit unit = std::exchange(unit_, Orv::getConfiguredUnit(*appConfig_));
    unlock();
    rebuild();
    DroppedEdits dropped = restoreEdits(shown, before);
    // In another unit a listed size has other sides: those of borders are rounded.
    if (const int index = ui_->size->currentIndex(); unit != unit_ && index >= 0 && index != customIndex())
        showSize(index);
    return dropped;
}

bool CNewSheetDialog::onLeave() {
    return checkSides();
}

bool CNewSheetDialog::isValid() {
    return checkSides();
}

bool CNewSheetDialog::isModified() const {
    return isFilled() && state() != unchanged_;
}

CNewSheetDialog::Orientation CNewSheetDialog::orientation() const {
    return ui_->portrait->isChecked() ? Orientation::portrait : Orientation::landscape;
}

std::vector<CNewSheetDialog::Stored> CNewSheetDialog::readAll() const {
    std::vector<Stored> all;
    for (const char* key : {kSizeKey, kCustomSizeKey, kOrientationKey, kAddBorderKey, kEnableBordersKey,
                            kFirstBorderKey, Orv::Metrics::UnitTraits::GetUnitCfgKey()}) {
        Stored& stored = all.emplace_back();
        Orv::getValues(*appConfig_, key, stored.values, stored.locks);
    }
    return all;
}

void CNewSheetDialog::unlock() {
    for (QWidget* control : std::initializer_list<QWidget*>{
             ui_->size, ui_->width, ui_->widthUnit, ui_->height, ui_->heightUnit, ui_->portrait,
             ui_->landscape, ui_->addBorder, ui_->enableBorders, ui_->useFirstBorder})
        unmarkLocked(*control);
}

void CNewSheetDialog::rebuild() {
    showUnit();
    sizes_ = sheetSizes(*appConfig_, borderTable(projectConfig_));
    QStringList labels;
    labels.reserve(static_cast<qsizetype>(sizes_.size()));
    for (const SheetSize& size : sizes_)
        labels.append(toQString(size.label));
    {
        const QScopedValueRollback updating(updating_, true);
        ui_->size->clear();
        ui_->size->addItems(labels);
    }
    if (const auto locked = lockedField(kCustomSizeKey))
        lockSides(kCustomSizeKey, locked->field);
    load();
}

void CNewSheetDialog::load() {
    loadOrientation();
    loadSize();
    loadFlags();
    unchanged_ = state();
    stored_ = readAll();
}

void CNewSheetDialog::loadOrientation() {
    bool locked = false;
    showOrientation(stored(kOrientationKey, locked) == kPortrait ? Orientation::portrait
                                                                 : Orientation::landscape);
    if (locked) {
        for (QRadioButton* button : {ui_->portrait, ui_->landscape})
            markLocked(*button, *appConfig_, kOrientationKey);
    }
}

void CNewSheetDialog::loadSize() {
    bool locked = false;
    const long size = stored(kSizeKey, locked);
    if (locked) {
        markLocked(*ui_->size, *appConfig_, kSizeKey);
        lockSides(kSizeKey, 0);
    }
    int index = -1;
    if (size == kFirstBorder)
        index = indexOfStoredSides();
    else if (size >= 0 && size <= customIndex())
        index = static_cast<int>(size);
    selectSize(index);
    // An index that is none selects nothing; its sides are those that a custom size would have.
    showSize(index < 0 ? customIndex() : index);
}

/// A border's size is known again by its text; where no border has it, it is a custom one.
int CNewSheetDialog::indexOfStoredSides() const {
    std::vector<std::string> sides;
    Orv::getValues(*appConfig_, kCustomSizeKey, sides);
    int index = kFirstBorder;
    while (index < customIndex() &&
           !std::ranges::equal(sizes_[static_cast<std::size_t>(index)].storedSides, sides))
        ++index;
    return index;
}

void CNewSheetDialog::loadFlags() {
    bool enableLocked = false, addLocked = false, firstLocked = false;
    ui_->enableBorders->setChecked(stored(kEnableBordersKey, enableLocked) == 1);
    ui_->addBorder->setChecked(stored(kAddBorderKey, addLocked) == 1);
    ui_->useFirstBorder->setChecked(stored(kFirstBorderKey, firstLocked) == 1);
    const auto lock = [this](QWidget& box, const char* key, bool locked) {
        if (locked)
            markLocked(box, *appConfig_, key);
    };
    lock(*ui_->enableBorders, kEnableBordersKey, enableLocked);
    lock(*ui_->addBorder, kAddBorderKey, addLocked);
    lock(*ui_->useFirstBorder, kEnableBordersKey, enableLocked);
    lock(*ui_->useFirstBorder, kAddBorderKey, addLocked);
    lock(*ui_->useFirstBorder, kFirstBorderKey, firstLocked);
    firstBorderLocked_ = enableLocked || addLocked || firstLocked;
    updateFirstBorder();
}

long CNewSheetDialog::stored(const char* key, bool& locked) const {
    std::string text;
    Orv::getValue(*appConfig_, key, text, locked);
    return Orv::longFromText(text);
}

void CNewSheetDialog::lockSides(const char* key, std::size_t field) {
    for (QWidget* control :
         std::initializer_list<QWidget*>{ui_->width, ui_->widthUnit, ui_->height, ui_->heightUnit})
        markLocked(*control, *appConfig_, key, field);
}

void CNewSheetDialog::showUnit() {
    const Orv::Metrics::UnitTraits traits(unit_);
    for (QLabel* label : {ui_->widthUnit, ui_->heightUnit})
        label->setText(toQString(traits.Abbreviation()));
    for (QLineEdit* edit : {ui_->width, ui_->height})
        edit->setAccessibleDescription(toQString(traits.FullName()));
}

void CNewSheetDialog::selectSize(int index) {
    const QScopedValueRollback updating(updating_, true);
    ui_->size->setCurrentIndex(index);
}

/// A custom size is shown as it is stored, whatever the orientation.
void CNewSheetDialog::showSize(int index) {
    const SheetSize& size = sizes_[static_cast<std::size_t>(index)];
    if (orientation() == Orientation::landscape || index == customIndex())
        showSides(size.first, size.second);
    else
        showSides(size.second, size.first);
}

void CNewSheetDialog::showSides(long width, long height) {
    const QScopedValueRollback updating(updating_, true);
    width_ = width;
    height_ = height;
    const int precision = Orv::Metrics::UnitTraits(unit_).Precision();
    ui_->width->setText(numberText(Orv::toDisplay(width_, unit_), precision));
    ui_->height->setText(numberText(Orv::toDisplay(height_, unit_), precision));
}

void CNewSheetDialog::showOrientation(Orientation orientation) {
    checkRadioButton(orientation == Orientation::portrait ? *ui_->portrait : *ui_->landscape);
}

void CNewSheetDialog::updateFirstBorder() {
    ui_->useFirstBorder->setEnabled(!firstBorderLocked_ && ui_->enableBorders->isChecked());
}

long CNewSheetDialog::typedLength(const QLineEdit& edit) const {
    return Orv::fromDisplay(numberFromTyped(edit.text()), unit_);
}

void CNewSheetDialog::sizeSelected(int index) {
    if (!updating_ && index >= 0 && index <= customIndex())
        showSize(index);
}

/// The size is looked up by the lengths that the two texts give, so a metric size, whose stored sides are
/// not whole, is not known by its rounded text. That is meant.
void CNewSheetDialog::sideTyped(const QLineEdit& edit, long& side) {
    if (updating_ || !isFilled())
        return;
    side = typedLength(edit);
    const long width = typedLength(*ui_->width);
    const long height = typedLength(*ui_->height);
    const auto named =
        std::ranges::find_if(sizes_, [&](const SheetSize& size) { return size.hasSides(width, height); });
    selectSize(std::min(static_cast<int>(named - sizes_.begin()), customIndex()));
    showOrientation(height <= width ? Orientation::landscape : Orientation::portrait);
}

void CNewSheetDialog::orientationChosen(Orientation orientation) {
    if (isFilled())
        turnTo(orientation);
}

void CNewSheetDialog::turnTo(Orientation orientation) {
    const bool turned = orientation == Orientation::landscape ? height_ > width_ : height_ < width_;
    if (turned)
        std::swap(width_, height_);
    showSides(width_, height_);
}

CNewSheetDialog::State CNewSheetDialog::state() const {
    return {ui_->size->currentText(),
            width_,
            height_,
            orientation(),
            ui_->addBorder->isChecked(),
            ui_->enableBorders->isChecked(),
            ui_->useFirstBorder->isChecked()};
}

DroppedEdits CNewSheetDialog::restoreEdits(const State& edited, const State& before) {
    DroppedEdits dropped;
    const auto isKept = [&](bool differs, std::initializer_list<const char*> keys) {
        if (!differs)
            return false;
        for (const char* key : keys) {
            if (const auto locked = lockedField(key)) {
                dropped.push_back(*locked);
                return false;
            }
        }
        return true;
    };
    if (isKept(edited.orientation != before.orientation, {kOrientationKey})) {
        showOrientation(edited.orientation);
        turnTo(edited.orientation);
    }
    const bool isOtherSize = edited.size != before.size || std::minmax(edited.width, edited.height) !=
                                                               std::minmax(before.width, before.height);
    const bool isTyped =
        edited.size == toQString(customSize().label) && !customSize().hasSides(edited.width, edited.height);
    if (isTyped ? isKept(isOtherSize, {kSizeKey, kCustomSizeKey}) : isKept(isOtherSize, {kSizeKey}))
        restoreSize(edited);
    if (isKept(edited.addsBorder != before.addsBorder, {kAddBorderKey}))
        ui_->addBorder->setChecked(edited.addsBorder);
    if (isKept(edited.enablesBorders != before.enablesBorders, {kEnableBordersKey}))
        ui_->enableBorders->setChecked(edited.enablesBorders);
    if (isKept(edited.usesFirstBorder != before.usesFirstBorder,
               {kEnableBordersKey, kAddBorderKey, kFirstBorderKey}))
        ui_->useFirstBorder->setChecked(edited.usesFirstBorder);
    return dropped;
}

void CNewSheetDialog::restoreSize(const State& edited) {
    const int index = ui_->size->findText(edited.size);
    // A border that has gone leaves its size behind, as a custom one.
    selectSize(index < 0 && !edited.size.isEmpty() ? customIndex() : index);
    if (index >= 0 && index != customIndex())
        showSize(index);
    else
        showSides(edited.width, edited.height);
}

std::optional<Orv::RefreshResult::Field> CNewSheetDialog::lockedField(const char* key) const {
    std::vector<std::string> values;
    std::vector<bool> locks;
    Orv::getValues(*appConfig_, key, values, locks);
    const auto locked = std::ranges::find(locks, true);
    if (locked == locks.end())
        return std::nullopt;
    return Orv::RefreshResult::Field{key, static_cast<std::size_t>(locked - locks.begin())};
}

/// What is checked is the text on show: a side below 1 is refused in every unit. That is meant.
bool CNewSheetDialog::checkSides() {
    return !isFilled() || (checkSide(*ui_->height, tr("Incorrect sheet height")) &&
                           checkSide(*ui_->width, tr("Incorrect sheet width")));
}

bool CNewSheetDialog::checkSide(QLineEdit& edit, const QString& message) {
    const int shown = Orv::integerFromText(toUtf8(edit.text()));
    if ((shown >= kShortestSide && shown <= kLongestSide) || !isUsersToMend(edit))
        return true;
    showMessage(&edit, message);
    edit.setFocus();
    edit.selectAll();
    return false;
}

} // namespace ovsettings
