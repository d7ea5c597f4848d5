#include "dialog/pages/display/colordialog.h"

#include "dialog/pages/display/sampleschematic.h"
#include "dialog/shell/internalpages.h"
#include "dialog/widgets/gdipainter.h"
#include "dialog/widgets/messagebox.h"
#include "dialog/widgets/ownerdrawbutton.h"
#include "dialog/widgets/plainfiledialog.h"
#include "dialog/widgets/radiobutton.h"
#include "dialog/widgets/stringconversion.h"
#include "orv/appconfiguration.h"
#include "platform/atomicfile.h"
#include "platform/installation.h"
#include "platform/paths.h"
#include "store/appcfg.h"
#include "store/colors.h"
#include "store/numbers.h"
#include "ui_colordialog.h"

#include <algorithm>

namespace ovsettings {

namespace {

constexpr QRgb kPaper = 0xffffffff;
constexpr const char* kScreenKey = "SCREEN";
constexpr const char* kPrinterKey = "PRINTER";

/// Where the palette number of a slot comes from, and the word by which the preview asks for it.
struct SlotRow {
    const char* key;
    std::size_t field; ///< of the key, from 0
    const char* previewWord;
};

/// By slot. The file's words for the slots are kSlotWords.
constexpr std::array<SlotRow, kPaletteSize> kSlots{{
    {"LINE", 2, "LINE"},
    {"BOX", 2, "BOX"},
    {"TEXT", 2, "TEXT"},
    {"CIRCLE", 2, "CIRCLE"},
    {"ARC", 2, "ARC"},
    {"NET", 2, "NET"},
    {"ATTRIBUTE", 2, "PROPERTY"},
    {"COMPONENT", 2, "COMPONENT"},
    {"LABEL", 2, "LABEL"},
    {"PIN", 2, "PIN"},
    {"ANNOTATION_LAYER", 0, "ANNOTATION"},
    {"SELECTION_LAYER", 0, "SELECTION"},
    {"BACKGROUND_LAYER", 0, "BACKGROUND"},
    {"VALUE_LAYER", 0, "VALUE"},
    {"BORDER_LAYER", 0, "BORDER"},
    {"HIGHLIGHT_LAYER", 0, "HIGHLIGHT"},
}};

/// These keys are delivered with a colour as text, which is no number of the palette and reads as 0.
int paletteNumber(const Orv::iAppConfiguration& appConfig, const SlotRow& slot) {
    std::vector<std::string> values;
    Orv::getValues(appConfig, slot.key, values);
    return slot.field < values.size() ? Orv::integerFromText(values[slot.field]) : 0;
}

Orv::CColorScheme::Numbers readColors(const Orv::iAppConfiguration& appConfig, const char* key) {
    std::vector<std::string> values;
    Orv::getValues(appConfig, key, values);
    values.resize(kPaletteSize);
    Orv::CColorScheme::Numbers colors{};
    std::ranges::transform(values, colors.begin(), Orv::colorFromText);
    return colors;
}

void storeColors(Orv::iAppConfiguration& appConfig, const char* key,
                 const Orv::CColorScheme::Numbers& colors) {
    std::vector<std::string> values(colors.size());
    std::ranges::transform(colors, values.begin(), Orv::colorToText);
    Orv::setValues(appConfig, key, values);
}

std::string defaultFile() {
    return platform::installationDirectory() + "/standard/colors.def";
}

} // namespace

std::vector<GridSetting> paletteSettings() {
    return {{kScreenKey, "Screen"}, {kPrinterKey, "Printer"}};
}

CColorDialog::CColorDialog(QWidget* parent) : CFormPage(parent, internalPage("Color Schemes")) {
}

CColorDialog::~CColorDialog() = default;

bool CColorDialog::buildTemplate() {
    CFormPage::buildTemplate();
    ui_->preview->setDrawing([this](const DrawItem& item) { drawPreview(item); });
    connect(ui_->screen, &QRadioButton::toggled, this, [this] { showForm(checkedForm()); });
    connect(ui_->grid, &CColorsGrid::colorChanged, ui_->preview, qOverload<>(&QWidget::update));
    connect(ui_->scheme, &QComboBox::currentIndexChanged, this, &CColorDialog::selectScheme);
    connect(ui_->exportScheme, &QPushButton::clicked, this, &CColorDialog::exportScheme);
    connect(ui_->importSchemes, &QPushButton::clicked, this, &CColorDialog::importSchemes);
    return true;
}

bool CColorDialog::OnInitDialog() {
    if (!appConfig_)
        return false;
    ui_->grid->onInitialUpdate();
    fillPreviewEntries();
    CPropDialogTemplateEx::OnInitDialog();
    checkRadioButton(*ui_->screen);
    addCurrentColors();
    readSchemeFile(defaultFile());
    return true;
}

/// Stores the selected scheme. What the user changed in the palette since is not part of it.
bool CColorDialog::onApply() {
    if (!selected_)
        return true;
    storeColors(*appConfig_, kScreenKey, selected_->screenColors);
    storeColors(*appConfig_, kPrinterKey, selected_->printColors);
    return true;
}

bool CColorDialog::onCancel() {
    return true;
}

/// The palette is not read from the configuration, so there is no edit to lose: only the sample follows.
DroppedEdits CColorDialog::followConfiguration() {
    if (!appConfig_)
        return {};
    fillPreviewEntries();
    ui_->preview->update();
    return {};
}

void CColorDialog::fillPreviewEntries() {
    for (const SlotRow& slot : kSlots)
        ui_->grid->setPreviewEntry(slot.previewWord, paletteNumber(*appConfig_, slot));
}

void CColorDialog::addCurrentColors() {
    auto scheme = std::make_unique<Orv::CColorScheme>();
    scheme->screenColors = readColors(*appConfig_, kScreenKey);
    scheme->printColors = readColors(*appConfig_, kPrinterKey);
    scheme->name = "Current Colors";
    schemes_.push_back(std::move(scheme));
}

void CColorDialog::showForm(ColorForm form) {
    ui_->preview->update();
    ui_->grid->refresh(form);
}

ColorForm CColorDialog::checkedForm() const {
    return ui_->screen->isChecked() ? ColorForm::screen : ColorForm::printer;
}

/// A file that is refused in its middle leaves the schemes before that, and the page as it is.
void CColorDialog::readSchemeFile(const std::string& path) {
    Orv::ColorSchemes read = Orv::readColorSchemes(path);
    for (Orv::CColorScheme& scheme : read.schemes)
        schemes_.push_back(std::make_unique<Orv::CColorScheme>(std::move(scheme)));
    if (read.error != Orv::ColorSchemeError::none)
        showMessage(this, QString());
    if (read.error != Orv::ColorSchemeError::none && read.error != Orv::ColorSchemeError::unreadable)
        return;
    // No entry is put in: the list of schemes stays empty, and with it all that hangs on a selection.
    ui_->scheme->clear();
    ui_->scheme->setCurrentIndex(0);
    selectScheme();
}

void CColorDialog::selectScheme() {
    const int index = ui_->scheme->currentIndex();
    if (index < 0 || index >= static_cast<int>(schemes_.size()))
        return;
    selected_ = schemes_[static_cast<std::size_t>(index)].get();
    for (int entry = 0; entry < static_cast<int>(kPaletteSize); ++entry) {
        CColorCell& cell = *ui_->grid->cell(entry);
        cell.setScreenColor(selected_->screenColors[static_cast<std::size_t>(entry)]);
        cell.setPrintColor(selected_->printColors[static_cast<std::size_t>(entry)]);
    }
    showForm(checkedForm());
}

void CColorDialog::importSchemes() {
    PlainFileDialog dialog(window(), tr("Load Color Scheme"), QString(),
                           tr("Scheme files (*.scm);;All Files (*)"));
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setDefaultSuffix(QStringLiteral("scm"));
    if (dialog.exec() == QDialog::Accepted)
        readSchemeFile(toUtf8(dialog.selectedFiles().value(0)));
}

void CColorDialog::exportScheme() {
    if (ui_->scheme->currentText().isEmpty())
        return;
    PlainFileDialog dialog(window(), tr("Save Color Scheme"), QString(),
                           tr("Scheme files (*.scm);;All Files (*)"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(QStringLiteral("scm"));
    if (dialog.exec() != QDialog::Accepted)
        return;
    const std::string path = toUtf8(dialog.selectedFiles().value(0));
    if (!platform::writeFileAtomically(path, schemeText(schemeToExport(path))))
        showMessage(this, tr("Unable to create file %1").arg(toQString(path)));
}

/// The palette as the user sees it, and the layers as they are configured.
Orv::CColorScheme CColorDialog::schemeToExport(const std::string& path) const {
    Orv::CColorScheme scheme;
    scheme.name = schemeNameOf(path);
    for (std::size_t entry = 0; entry < kPaletteSize; ++entry) {
        scheme.screenColors[entry] = ui_->grid->color(static_cast<int>(entry), ColorForm::screen);
        scheme.printColors[entry] = ui_->grid->color(static_cast<int>(entry), ColorForm::printer);
    }
    for (std::size_t slot = kFirstLayerSlot; slot < kPaletteSize; ++slot)
        scheme.layerSlots[slot] = paletteNumber(*appConfig_, kSlots[slot]);
    return scheme;
}

/// "ATTRIBUTE" is no word of the palette, which calls it "PROPERTY", and so comes out in entry 0. Users know
/// the sample so.
void CColorDialog::drawPreview(const DrawItem& item) const {
    if (item.action != DrawAction::entire)
        return;
    const ColorForm form = checkedForm();
    const auto color = [&](const char* word) {
        return toQColor(ui_->grid->color(ui_->grid->previewEntry(word), form));
    };
    QColor background = color("BACKGROUND");
    if (form == ColorForm::printer)
        background = QColor(kPaper);
    else if (ui_->grid->previewEntry("BACKGROUND") == Orv::CColorScheme::kSystemColor)
        background = palette().color(QPalette::Base);
    paintSampleSchematic(item, {.background = background,
                                .border = color("BORDER"),
                                .box = color("BOX"),
                                .pin = color("PIN"),
                                .net = color("NET"),
                                .label = color("LABEL"),
                                .attribute = color("ATTRIBUTE"),
                                .text = color("TEXT"),
                                .circle = color("CIRCLE")});
}

} // namespace ovsettings
