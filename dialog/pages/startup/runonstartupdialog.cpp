#include "dialog/pages/startup/runonstartupdialog.h"

#include "dialog/shell/internalpages.h"
#include "dialog/widgets/messagebox.h"
#include "dialog/widgets/stringconversion.h"
#include "dialog/widgets/waitcursor.h"
#include "platform/environment.h"
#include "platform/filelock.h"
#include "platform/paths.h"
#include "ui_runonstartupdialog.h"

#include <filesystem>
#include <optional>
#include <system_error>

namespace ovsettings {

namespace {

constexpr unsigned kFormPrefix = 14;
constexpr unsigned kScriptPrefix = 15;
constexpr qsizetype kLongestValue = 1024; ///< in characters, on show

/// Only the user's directory counts, writable or not.
std::string firstWorkingDirectory() {
    const std::string list = platform::environmentVariable("WDIR").value_or("");
    return list.substr(0, list.find(';'));
}

bool fileExists(const std::string& path) {
    const auto existing = platform::resolveExisting(path);
    std::error_code unreachable;
    return existing && std::filesystem::exists(*existing, unreachable) && !platform::isDirectory(*existing);
}

} // namespace

CRunOnStartupDialog::CRunOnStartupDialog(QWidget* parent)
    : CFormPage(parent, internalPage("Run on Startup")) {
}

CRunOnStartupDialog::~CRunOnStartupDialog() = default;

bool CRunOnStartupDialog::OnInitDialog() {
    forms_.attach(*ui_->forms, tr("Forms:"));
    scripts_.attach(*ui_->scripts, tr("Scripts:"));
    fileName_ = firstWorkingDirectory() + "\\scripts.ini";
    forms_.read(fileName_, kFormPrefix);
    scripts_.read(fileName_, kScriptPrefix);
    refreshControls();
    return true;
}

bool CRunOnStartupDialog::onApply() {
    if (fileName_.empty()) // never filled: there is nothing to store
        return true;
    // Both lists first: an edit that is still open may end with a question.
    for (CFileList* list : {&forms_, &scripts_})
        list->exchange(Exchange::fromControls);
    std::chrono::milliseconds patience = platform::kLockTimeout;
    for (CFileList* list : {&forms_, &scripts_}) {
        if (!list->write(patience))
            showMessage(this, tr("Writing %1 failed").arg(toQString(fileName_)));
    }
    for (CFileList* list : {&forms_, &scripts_})
        list->clearChanged();
    return true;
}

bool CRunOnStartupDialog::isModified() const {
    return forms_.isChanged() || scripts_.isChanged();
}

int CRunOnStartupDialog::refreshControls() {
    forms_.exchange(Exchange::toControls);
    scripts_.exchange(Exchange::toControls);
    return 1;
}

void CRunOnStartupDialog::CFileList::attach(CListBoxFileEditorEx& editor, const QString& title) {
    editor_ = &editor;
    editor.setTitle(title);
}

void CRunOnStartupDialog::CFileList::read(const std::string& fileName, unsigned prefixId) {
    file_.setUp(fileName, prefixId);
    file_.read(strings_);
}

void CRunOnStartupDialog::CFileList::exchange(Exchange direction) {
    if (direction == Exchange::toControls) {
        QStringList lines;
        for (const std::string& string : strings_)
            lines.append(toQString(string).left(kLongestValue));
        editor_->setLines(lines);
        // A name that is too long to show, or no UTF-8, is written as it was until the user changes it.
        for (int row = 0; row < lines.size(); ++row) {
            const std::string& string = strings_[static_cast<std::size_t>(row)];
            if (toUtf8(lines[row]) != string)
                editor_->setOrigin(row, QByteArray::fromStdString(string));
        }
        return;
    }
    editor_->finishEditing();
    strings_.clear();
    for (int row = 0; row < editor_->lineCount(); ++row) {
        const QVariant origin = editor_->origin(row);
        strings_.push_back(origin.isValid() ? origin.toByteArray().toStdString()
                                            : toUtf8(editor_->line(row)));
    }
}

bool CRunOnStartupDialog::CFileList::write(std::chrono::milliseconds& patience) {
    const WaitCursor waiting;
    return file_.write(strings_, patience);
}

void CRunOnStartupDialog::CFileList::clearChanged() {
    editor_->clearChanged();
}

bool CRunOnStartupDialog::CFileList::isChanged() const {
    return editor_ && editor_->isChanged();
}

void CRunOnStartupDialog::CListBoxFileEditorEx::lineAdded(int row, const QString& text) {
    checkFile(row, text);
}

void CRunOnStartupDialog::CListBoxFileEditorEx::lineRenamed(int row, const QString& text) {
    checkFile(row, text);
}

void CRunOnStartupDialog::CListBoxFileEditorEx::lineDeleted(int) {
    changed_ = true;
}

void CRunOnStartupDialog::CListBoxFileEditorEx::lineMoved(int, int) {
    changed_ = true;
}

/// An entry for a missing file that the user does not want goes, a renamed one just as a new one: he has just
/// said that he does not want it.
void CRunOnStartupDialog::CListBoxFileEditorEx::checkFile(int row, const QString& text) {
    changed_ = true;
    const QString path = toQString(platform::fullPath(toUtf8(text)));
    if (!fileExists(toUtf8(path)) &&
        !askYesNo(this, tr("%1\n\nThis file does not exist.\nAdd the file anyway?").arg(path),
                  applicationTitle(), QMessageBox::Question, QMessageBox::No)) {
        removeLine(row);
        return;
    }
    setLine(row, path);
}

} // namespace ovsettings
