#include "dialog/pages/display/objectcolordialog.h"

#include "dialog/pages/display/icepreview.h"
#include "dialog/pages/display/mappinggrid.h"
#include "dialog/pages/display/mappingrow.h"
#include "dialog/pages/display/ovpreview.h"
#include "dialog/shell/internalpages.h"
#include "dialog/widgets/messagebox.h"
#include "dialog/widgets/ownerdrawbutton.h"
#include "dialog/widgets/plainfiledialog.h"
#include "dialog/widgets/propfile.h"
#include "dialog/widgets/radiobutton.h"
#include "dialog/widgets/stringconversion.h"
#include "orv/appconfiguration.h"
#include "platform/installation.h"
#include "platform/paths.h"
#include "schemes/objectschema.h"
#include "store/appcfg.h"
#include "store/colors.h"
#include "ui_objectcolordialog.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QLineEdit>

#include <algorithm>

namespace ovsettings {

namespace {

constexpr const char* kRecentSchemes = "MRU_SCHEMA";

constexpr const char* kSchematicMode = "OV";
constexpr const char* kIctMode = "ICT";
constexpr const char* kSchematicPreview = "ORV";
constexpr const char* kIctPreview = "ICT";
constexpr const char* kSchematicSection = "schematic";
constexpr const char* kIctSection = "ict";

/// A column that a row has; the configuration gives the value.
constexpr int kOpen = 0;

using AddRow = void (CMappingGrid::*)(const std::string& caption, const std::string& key,
                                      const MappingValues& values);

struct SchematicRow {
    const char* key;
    const char* caption;
    AddRow add;
    MappingValues values;
};

constexpr MappingValues kColor{.color = kOpen};
constexpr MappingValues kShape{.color = kOpen, .fill = kOpen, .line = kOpen};
constexpr MappingValues kStroke{.color = kOpen, .fill = kOpen, .line = kOpen, .width = kOpen};
constexpr MappingValues kText{.textColor = kOpen, .font = kOpen};
constexpr MappingValues kAttribute{.color = kOpen, .font = kOpen};

constexpr AddRow kObject = &CMappingGrid::addRow;
constexpr AddRow kLayer = &CMappingGrid::addLayerRow;
constexpr AddRow kTextLayer = &CMappingGrid::addTextRow;

constexpr SchematicRow kSchematicRows[] = {
    {"ANNOTATION_LAYER", QT_TRANSLATE_NOOP("ovsettings", "Annotation"), kLayer, kColor},
    {"ARC", QT_TRANSLATE_NOOP("ovsettings", "Arc"), kObject, kShape},
    {"BACKGROUND_LAYER", QT_TRANSLATE_NOOP("ovsettings", "Background"), kLayer, kColor},
    {"BORDER_LAYER", QT_TRANSLATE_NOOP("ovsettings", "Border"), kLayer, kColor},
    {"BOX", QT_TRANSLATE_NOOP("ovsettings", "Box"), kObject, kShape},
    {"BUS", QT_TRANSLATE_NOOP("ovsettings", "Bus"), kObject, kStroke},
    {"CIRCLE", QT_TRANSLATE_NOOP("ovsettings", "Circle"), kObject, kShape},
    {"COMPONENT", QT_TRANSLATE_NOOP("ovsettings", "Component"), kObject, kShape},
    {"GRID_LAYER", QT_TRANSLATE_NOOP("ovsettings", "Grid"), kLayer, kColor},
    {"HIGHLIGHT_LAYER", QT_TRANSLATE_NOOP("ovsettings", "Highlight"), kLayer, kShape},
    {"LINE", QT_TRANSLATE_NOOP("ovsettings", "Line"), kObject, kStroke},
    {"LABEL", QT_TRANSLATE_NOOP("ovsettings", "Name"), kTextLayer, kText},
    {"NET", QT_TRANSLATE_NOOP("ovsettings", "Net"), kObject, kStroke},
    {"PIN", QT_TRANSLATE_NOOP("ovsettings", "Pin"), kObject, kShape},
    {"ATTRIBUTE", QT_TRANSLATE_NOOP("ovsettings", "Property"), kObject, kAttribute},
    {"SELECTION_LAYER", QT_TRANSLATE_NOOP("ovsettings", "Selection"), kLayer, kColor},
    {"TEXT", QT_TRANSLATE_NOOP("ovsettings", "Text"), kTextLayer, kText},
    {"UNPLACEDCOMPONENT_LAYER", QT_TRANSLATE_NOOP("ovsettings", "Unplaced component"), kLayer, kColor},
};

struct IctRow {
    const char* key;
    const char* caption;
    int startingColor; ///< packed, red in the low byte
};

constexpr IctRow kIctRows[] = {
    {"COMPONENT", QT_TRANSLATE_NOOP("ovsettings", "Block"), 0x80B0E0},
    {"BUS", QT_TRANSLATE_NOOP("ovsettings", "Bus"), 0x0060C0},
    {"DIFFPAIR", QT_TRANSLATE_NOOP("ovsettings", "Diff Pair"), 0xE02020},
    {"FUB", QT_TRANSLATE_NOOP("ovsettings", "Editable Block"), 0x80B0E0},
    {"EDITCELL", QT_TRANSLATE_NOOP("ovsettings", "Editable Cell"), 0xE0E0E0},
    {"FPGA", QT_TRANSLATE_NOOP("ovsettings", "FPGA"), 0x80B0E0},
    {"NETS", QT_TRANSLATE_NOOP("ovsettings", "Global Net"), 0xE02020},
    {"GROUP", QT_TRANSLATE_NOOP("ovsettings", "Group"), 0x0040C0},
    {"HIGHLIGHT_LAYER", QT_TRANSLATE_NOOP("ovsettings", "Highlight"), 0xFF00FF},
    {"INVALIDCELL", QT_TRANSLATE_NOOP("ovsettings", "Invalid Cell"), 0xB0B0B0},
    {"NET", QT_TRANSLATE_NOOP("ovsettings", "Net"), 0xE02020},
    {"PIN", QT_TRANSLATE_NOOP("ovsettings", "Pin"), 0x80B0E0},
    {"PORT", QT_TRANSLATE_NOOP("ovsettings", "Port"), 0x0040C0},
    {"SYMBOL", QT_TRANSLATE_NOOP("ovsettings", "Symbol"), 0x80B0E0},
    {"BLOCK", QT_TRANSLATE_NOOP("ovsettings", "View"), 0x0060C0},
};

/// A file dialog for schemes. Its default extension is another one than the files have: users know it so.
class SchemeFileDialog : public PlainFileDialog {
public:
    SchemeFileDialog(QWidget* parent, const QString& title, AcceptMode mode)
        : PlainFileDialog(
              parent, title, QString(),
              toQString(toolkitFilter("Orvane Color Schema (*.ovc)|*.ovc|All Files (*.*)|*.*||"))) {
        setOption(DontUseNativeDialog);
        setFileMode(AnyFile);
        setAcceptMode(mode);
        setDefaultSuffix(QStringLiteral("lmc"));
    }

    /// Puts a path into the name box. One in a directory that is gone stays whole there: the toolkit would
    /// cut its root off, and take what is left for a name in the current directory.
    void preset(const QString& path) {
        selectFile(path);
        auto* name = findChild<QLineEdit*>();
        if (name && !QFileInfo(path).dir().exists())
            name->setText(path);
    }

    /// The chosen path; empty if there is none.
    std::string choose() { return exec() == Accepted ? toUtf8(selectedFiles().value(0)) : std::string(); }
};

std::string firstRecentScheme(const Orv::iAppConfiguration& appConfig) {
    std::string first;
    Orv::getValue(appConfig, kRecentSchemes, first);
    return platform::resolveExisting(first).value_or(platform::platformPath(first));
}

std::string installedSchemes() {
    return platform::resolveExisting(platform::installationDirectory() + "/standard").value_or("");
}

void addRecentScheme(Orv::iAppConfiguration& appConfig, const std::string& path) {
    // At the end, and again if it is there already, although only the front is looked at: hosts know the list
    // so.
    std::vector<std::string> recent;
    Orv::getValues(appConfig, kRecentSchemes, recent);
    recent.push_back(path);
    Orv::setValues(appConfig, kRecentSchemes, recent);
}

void applySection(const CObjectSchema& schema, std::string_view section, const CMappingGrid& grid) {
    for (int number = 1; number <= grid.mappingRowCount(); ++number) {
        CMappingRow& row = *grid.mappingRow(number);
        if (const CObjectSchemaItem* item = schema.item(section, schemaItemName(row.caption())))
            row.applySchema(item->color, item->text);
    }
}

void addSection(CObjectSchema& schema, const std::string& section, const CMappingGrid& grid) {
    for (int number = 1; number <= grid.mappingRowCount(); ++number) {
        const CMappingRow& row = *grid.mappingRow(number);
        schema.addItem(section, {schemaItemName(row.caption()), Orv::colorToShortText(row.getColor()),
                                 Orv::colorToShortText(row.getTextColor())});
    }
}

} // namespace

std::vector<GridSetting> objectSettings() {
    std::vector<GridSetting> settings;
    for (const SchematicRow& row : kSchematicRows)
        settings.push_back({row.key, row.caption});
    for (const IctRow& row : kIctRows)
        settings.push_back({CMappingICTObject::keyOf(row.key), row.caption});
    return settings;
}

CObjectColorDialog::CObjectColorDialog(QWidget* parent) : CFormPage(parent, internalPage("Objects")) {
}

CObjectColorDialog::~CObjectColorDialog() = default;

/// Kept for hosts that may still send a message of that code, which nothing here does.
bool CObjectColorDialog::PreTranslateMessage(QKeyEvent* event) {
    constexpr int kTestMessage = QEvent::User + 7;
    if (event->type() == kTestMessage)
        showMessage(this, QStringLiteral("test"));
    return false;
}

bool CObjectColorDialog::buildTemplate() {
    CFormPage::buildTemplate();
    ui_->ictGrid->hide();
    return true;
}

bool CObjectColorDialog::OnInitDialog() {
    if (!appConfig_)
        return false;
    registerGrid(kSchematicMode, *ui_->schematicGrid);
    for (const SchematicRow& row : kSchematicRows)
        (ui_->schematicGrid->*row.add)(row.caption, row.key, row.values);
    registerGrid(kIctMode, *ui_->ictGrid);
    for (const IctRow& row : kIctRows)
        ui_->ictGrid->addIctRow(row.caption, row.key, row.startingColor);

    previews_[kSchematicPreview] = std::make_unique<COvPreview>(*ui_->schematicGrid);
    previews_[kIctPreview] = std::make_unique<CICEPreview>(*ui_->ictGrid);
    ui_->preview->setDrawing([this](const DrawItem& item) { currentPreview_->draw(item); });
    CPropDialogTemplateEx::OnInitDialog();
    changeMode();
    connect(ui_->schematic, &QRadioButton::toggled, this, &CObjectColorDialog::changeMode);
    connect(ui_->loadScheme, &QPushButton::clicked, this, &CObjectColorDialog::loadScheme);
    connect(ui_->saveScheme, &QPushButton::clicked, this, &CObjectColorDialog::saveScheme);
    return true;
}

CMappingGrid* CObjectColorDialog::grid(std::string_view mode) const {
    const auto grid = grids_.find(mode);
    return grid == grids_.end() ? nullptr : grid->second;
}

void CObjectColorDialog::registerGrid(const std::string& mode, CMappingGrid& grid) {
    grid.setAppConfiguration(appConfig_);
    grid.setMode(mode);
    grid.setPreview(ui_->preview);
    grid.init();
    currentGrid_ = grids_[mode] = &grid;
}

void CObjectColorDialog::changeMode() {
    const bool isIct = !ui_->schematic->isChecked();
    currentPreview_ = previews_[isIct ? kIctPreview : kSchematicPreview].get();
    currentGrid_ = grid(isIct ? kIctMode : kSchematicMode);
    for (const auto& [mode, grid] : grids_)
        grid->setVisible(grid == currentGrid_);
    ui_->preview->setAccessibleDescription(isIct ? tr("A sample of an interconnectivity table")
                                                 : tr("A sample of a schematic"));
    ui_->preview->repaint();
}

bool CObjectColorDialog::onApply() {
    storeGrids();
    for (const auto& [mode, grid] : grids_)
        grid->setUnchanged();
    return true;
}

/// What Load Scheme and Save Scheme have stored counts as modified until a commit has told the host of it.
bool CObjectColorDialog::isModified() const {
    return std::ranges::any_of(grids_, [](const auto& entry) { return entry.second->isModified(); });
}

DroppedEdits CObjectColorDialog::followConfiguration() {
    DroppedEdits dropped;
    for (const char* mode : {kSchematicMode, kIctMode}) {
        if (CMappingGrid* following = grid(mode))
            following->follow(dropped);
    }
    ui_->preview->update();
    return dropped;
}

bool CObjectColorDialog::hasUnsavedEdits() const {
    return std::ranges::any_of(grids_, [](const auto& entry) { return entry.second->hasUnsavedEdits(); });
}

bool CObjectColorDialog::onLeave() {
    return validate();
}

bool CObjectColorDialog::isValid() {
    return validate();
}

bool CObjectColorDialog::validate() {
    bool valid = true;
    for (const char* mode : {kSchematicMode, kIctMode}) {
        CMappingGrid* checked = grid(mode);
        if (!checked || checked->validate())
            continue;
        valid = false;
        showGrid(*checked);
    }
    return valid;
}

/// The cell at fault has the keyboard afterwards; in an open one that is its editor.
void CObjectColorDialog::showGrid(CMappingGrid& shown) {
    checkRadioButton(&shown == ui_->ictGrid ? *ui_->ict : *ui_->schematic);
    if (!shown.isEditing())
        shown.setFocus();
}

void CObjectColorDialog::storeGrids() {
    for (const char* mode : {kSchematicMode, kIctMode}) {
        if (CMappingGrid* written = grid(mode))
            written->store();
    }
}

bool CObjectColorDialog::storeForScheme() {
    // A text that its cell refuses is not stored, and there is no scheme without it.
    for (const auto& [mode, grid] : grids_) {
        if (!grid->endEdit()) {
            showGrid(*grid);
            return false;
        }
    }
    storeGrids();
    return true;
}

void CObjectColorDialog::loadScheme() {
    if (!storeForScheme())
        return;
    SchemeFileDialog dialog(window(), tr("Load Schema File"), QFileDialog::AcceptOpen);
    if (const std::string recent = firstRecentScheme(*appConfig_); !recent.empty())
        dialog.preset(toQString(recent));
    else
        dialog.setDirectory(toQString(installedSchemes()));
    const std::string path = dialog.choose();
    if (path.empty())
        return;

    CObjectSchema schema([this](const std::string& text) { showMessage(this, toQString(text)); });
    if (!schema.read(path)) {
        if (!schema.error().empty())
            showMessage(this, toQString(schema.error()));
        return;
    }
    applySection(schema, kSchematicSection, *grid(kSchematicMode));
    applySection(schema, kIctSection, *grid(kIctMode));
    ui_->preview->repaint();
}

void CObjectColorDialog::saveScheme() {
    if (!storeForScheme())
        return;
    SchemeFileDialog dialog(window(), tr("Save Schema File"), QFileDialog::AcceptSave);
    if (const std::string recent = firstRecentScheme(*appConfig_); !recent.empty())
        dialog.preset(toQString(recent));
    const std::string path = dialog.choose();
    if (path.empty())
        return;

    CObjectSchema schema;
    addSection(schema, kSchematicMode, *grid(kSchematicMode));
    addSection(schema, kIctMode, *grid(kIctMode));
    // A path that could not be written is none that the user wants to begin with next time.
    if (const auto written = schema.write(path); !written) {
        showMessage(this, tr("The scheme is not saved.\n%1").arg(toQString(written.errorText())));
        return;
    }
    addRecentScheme(*appConfig_, path);
    // At once: the file is there, whatever becomes of the dialog.
    if (!appConfig_->save() || appConfig_->lastSaveFailed())
        return;
    for (const auto& [mode, grid] : grids_)
        grid->setSaved();
}

} // namespace ovsettings
