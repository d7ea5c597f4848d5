#include "dialog/pages/project/partbookdialog.h"

#include "dialog/shell/internalpages.h"
#include "dialog/shell/projectaccess.h"
#include "dialog/shell/stringtable.h"
#include "dialog/widgets/plainfiledialog.h"
#include "dialog/widgets/propfile.h"
#include "dialog/widgets/stringconversion.h"
#include "orv/projectfiledata.h"
#include "ui_partbookdialog.h"

#include <string>

namespace ovsettings {

namespace {

constexpr unsigned kFileFilter = 5000;
constexpr char kSection[] = "DesignInfo";
constexpr char kKey[] = "DBCFile";

QString fileFilter() {
    auto filter = loadString(kFileFilter, userLanguageId());
    if (!filter)
        filter = loadString(kFileFilter, kEnglish);
    return toQString(toolkitFilter(filter.value_or("")));
}

} // namespace

CPartBookDialog::CPartBookDialog(QWidget* parent) : CFormPage(parent, internalPage("PartBookDialog")) {
}

CPartBookDialog::~CPartBookDialog() = default;

bool CPartBookDialog::OnInitDialog() {
    connect(ui_->browse, &QToolButton::clicked, this, &CPartBookDialog::browse);
    if (showsProject(ui_->file, projectConfig_))
        ui_->file->setText(toQString(projectConfig_->projectFile->GetValue(kSection, kKey)));
    shown_ = ui_->file->text();
    return true;
}

/// True also when there is nothing to store: the dialog takes anything else for a refusal, and would stay
/// open.
bool CPartBookDialog::onApply() {
    if (!isModified())
        return true;
    const std::string file = toUtf8(ui_->file->text());
    projectConfig_->projectFile->SetValue(kSection, kKey, file);
    // What could not be written is tried again.
    if (projectConfig_->projectFile->GetValue(kSection, kKey) == file)
        shown_ = ui_->file->text();
    return true;
}

bool CPartBookDialog::isModified() const {
    return showsProject(ui_->file, projectConfig_) && ui_->file->text() != shown_;
}

void CPartBookDialog::browse() {
    PlainFileDialog dialog(window(), tr("OvPartBook configuration file"), QString(), fileFilter());
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setDefaultSuffix(QStringLiteral("dbc"));
    if (dialog.exec() == QDialog::Accepted)
        ui_->file->setText(dialog.selectedFiles().value(0));
}

} // namespace ovsettings
