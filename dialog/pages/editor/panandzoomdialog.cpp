#include "dialog/pages/editor/panandzoomdialog.h"

#include "dialog/shell/internalpages.h"
#include "dialog/widgets/lockmark.h"
#include "dialog/widgets/radiobutton.h"
#include "store/appcfg.h"
#include "ui_panandzoomdialog.h"

#include <QtGui/QFocusEvent>

#include <algorithm>
#include <iterator>

namespace ovsettings {

namespace {

QRadioButton& buttonOf(const KeyedControl& keyed) {
    return static_cast<QRadioButton&>(*keyed.control);
}

bool isChecked(const KeyedControl& keyed) {
    return buttonOf(keyed).isChecked();
}

} // namespace

CPanAndZoomDialog::CPanAndZoomDialog(QWidget* parent) : CFormPage(parent, internalPage("Pan and Zoom")) {
}

CPanAndZoomDialog::~CPanAndZoomDialog() = default;

bool CPanAndZoomDialog::buildTemplate() {
    CFormPage::buildTemplate();
    zoomButtons_ = keyedControls(*ui_->zoom, row().writes);
    strokeButtons_ = keyedControls(*ui_->strokes, row().writes);
    for (const QRadioButton* button : {ui_->sarnZoom, ui_->middleButton})
        connect(button, &QRadioButton::clicked, this, &CPanAndZoomDialog::keepMiddleButtonFree);
    ui_->middleButton->installEventFilter(this);
    return true;
}

bool CPanAndZoomDialog::OnInitDialog() {
    if (!appConfig_)
        return false;
    fill();
    return true;
}

bool CPanAndZoomDialog::onApply() {
    if (!unchanged_) // never filled: there is nothing to store
        return true;
    store(zoomFlags());
    keepMiddleButtonFree();
    store(strokeFlags());
    unchanged_ = allFlags();
    stored_ = readAll();
    return true;
}

bool CPanAndZoomDialog::isModified() const {
    return unchanged_ && !editedKeys(allFlags()).empty();
}

DroppedEdits CPanAndZoomDialog::followConfiguration() {
    DroppedEdits dropped;
    if (!unchanged_ || readAll() == stored_)
        return dropped;
    const auto checkedOf = [](const std::vector<KeyedControl>& buttons) {
        const auto checked = std::ranges::find_if(buttons, isChecked);
        return checked == buttons.end() ? nullptr : &buttonOf(*checked);
    };
    QRadioButton* zoom = checkedOf(zoomButtons_);
    QRadioButton* strokes = checkedOf(strokeButtons_);
    const auto zoomEdits = editedKeys(zoomFlags());
    const auto strokeEdits = editedKeys(strokeFlags());
    showAnew();
    keepEdit(zoom, zoomEdits, dropped);
    keepEdit(strokes, strokeEdits, dropped);
    keepMiddleButtonFree();
    return dropped;
}

void CPanAndZoomDialog::showAnew() {
    for (const KeyedControl& keyed : keyedControls(*this))
        unmarkLocked(*keyed.control);
    fill();
}

void CPanAndZoomDialog::fill() {
    showLocks();
    showZoom();
    showStrokes();
    unchanged_ = allFlags();
    stored_ = readAll();
}

void CPanAndZoomDialog::keepEdit(QRadioButton* checked, const std::vector<std::string>& editedKeys,
                                 DroppedEdits& dropped) {
    bool isLockedNow = false;
    for (const std::string& key : editedKeys) {
        if (!isLocked(key))
            continue;
        isLockedNow = true;
        dropped.push_back({key, 0});
    }
    if (checked && !editedKeys.empty() && !isLockedNow)
        checkRadioButton(*checked);
}

std::vector<CPanAndZoomDialog::Stored> CPanAndZoomDialog::readAll() const {
    std::vector<Stored> all;
    for (const char* key : row().writes) {
        Stored read{key, {}};
        Orv::getValue(*appConfig_, key, read.text, read.locked);
        all.push_back(std::move(read));
    }
    return all;
}

/// What was locked when it was shown is not the user's to change.
std::vector<std::string> CPanAndZoomDialog::editedKeys(const Flags& choice) const {
    std::vector<std::string> keys;
    for (const Flag& flag : choice) {
        const auto stored = std::ranges::find(stored_, flag.key, &Stored::key);
        if (!stored->locked && std::ranges::find(*unchanged_, flag) == unchanged_->end())
            keys.push_back(flag.key);
    }
    return keys;
}

std::string CPanAndZoomDialog::stored(const char* key) const {
    std::string text;
    Orv::getValue(*appConfig_, key, text);
    return text;
}

bool CPanAndZoomDialog::isLocked(const std::string& key) const {
    std::string ignored;
    bool locked = false;
    Orv::getValue(*appConfig_, key, ignored, locked);
    return locked;
}

/// Each button is disabled by the lock of its own key.
void CPanAndZoomDialog::showLocks() {
    for (const KeyedControl& keyed : keyedControls(*this)) {
        if (isLocked(keyed.setting.key))
            markLocked(*keyed.control, *appConfig_, keyed.setting.key);
    }
}

/// The default style's own flag is not asked, and a flag that is neither on nor off leaves all styles
/// unchecked: users know the page so.
void CPanAndZoomDialog::showZoom() {
    const std::string sarn = stored("SARN_ZOOM");
    if (stored("LORVIK_ZOOM") == "1")
        checkRadioButton(*ui_->lorvikZoom);
    else if (sarn == "1")
        checkRadioButton(*ui_->sarnZoom);
    else if (sarn == "0")
        checkRadioButton(*ui_->defaultZoom);
}

void CPanAndZoomDialog::showStrokes() {
    if (stored("STROKES") != "1")
        checkRadioButton(*ui_->strokesOff);
    else if (stored("MIDSTROKE") == "1")
        checkRadioButton(*ui_->middleButton);
    else
        checkRadioButton(*ui_->rightButton);
}

void CPanAndZoomDialog::keepMiddleButtonFree() {
    if (!ui_->sarnZoom->isChecked() || !ui_->middleButton->isChecked())
        return;
    checkRadioButton(*ui_->rightButton);
    if (ui_->middleButton->hasFocus())
        ui_->rightButton->setFocus();
}

/// An arrow key first checks a button, which is turned back at once, and then moves the focus to it.
bool CPanAndZoomDialog::eventFilter(QObject* watched, QEvent* event) {
    if (watched != ui_->middleButton || event->type() != QEvent::FocusIn || ui_->middleButton->isChecked() ||
        !ui_->sarnZoom->isChecked())
        return Page::eventFilter(watched, event);
    const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
    if (reason == Qt::MouseFocusReason) // the click that follows turns it back
        return false;
    ui_->rightButton->setFocus(reason);
    return true;
}

CPanAndZoomDialog::Flags CPanAndZoomDialog::zoomFlags() const {
    Flags flags;
    for (const KeyedControl& keyed : zoomButtons_)
        flags.push_back({keyed.setting.key, isChecked(keyed)});
    if (std::ranges::none_of(flags, &Flag::on))
        flags.clear();
    return flags;
}

/// Strokes that are off leave their button alone: turned on again, they are drawn with the same one.
CPanAndZoomDialog::Flags CPanAndZoomDialog::strokeFlags() const {
    if (ui_->strokesOff->isChecked())
        return {{"STROKES", false}};
    const bool middle = ui_->middleButton->isChecked() && !ui_->sarnZoom->isChecked();
    return {{"STROKES", true}, {"MIDSTROKE", middle}};
}

CPanAndZoomDialog::Flags CPanAndZoomDialog::allFlags() const {
    Flags flags = zoomFlags();
    std::ranges::copy(strokeFlags(), std::back_inserter(flags));
    return flags;
}

void CPanAndZoomDialog::store(const Flags& flags) {
    for (const Flag& flag : flags)
        Orv::setValue(*appConfig_, flag.key, Orv::flagText(flag.on));
}

} // namespace ovsettings
