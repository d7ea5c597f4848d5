#include "dialog/pages/project/pcbdialog.h"

#include "dialog/shell/internalpages.h"
#include "dialog/widgets/propfile.h"
#include "platform/paths.h"
#include "ui_pcbdialog.h"

#include <algorithm>
#include <array>

namespace ovsettings {

namespace {

struct FileField {
    QLineEdit* Ui::CPCBDialog::*edit;
    QToolButton* Ui::CPCBDialog::*browse;
    const char* title;
    const char* defaultName;
    const char* initialDirectory;
};

// Users know the chooser by its title "Configuratoin file", spelled so.
constexpr std::array kFileFields{
    FileField{&Ui::CPCBDialog::projectFile, &Ui::CPCBDialog::browseProjectFile, "Project File", ".prj",
              "c:\\"},
    FileField{&Ui::CPCBDialog::layoutTemplate, &Ui::CPCBDialog::browseLayoutTemplate, "LayoutTemplate",
              ".tpl", "c:\\"},
    FileField{&Ui::CPCBDialog::configurationFile, &Ui::CPCBDialog::browseConfigurationFile,
              "Configuratoin file", ".cnf", "c:\\"},
};

const CFileValidator kExistingBareName(CFileValidator::existingBareName);

/// A file name field that may be left empty, as it is at first and after a refused choice.
class OptionalPropFile : public CPropFile {
public:
    explicit OptionalPropFile(QLineEdit& edit) : CPropFile(edit), edit_(edit) {
        setValidator(&kExistingBareName);
    }

    bool isValid() const override { return edit_.text().isEmpty() || CPropFile::isValid(); }

    /// A refused name leads to its field.
    bool checkField() override {
        if (edit_.text().isEmpty() || CPropFile::checkField())
            return true;
        edit_.setFocus();
        edit_.selectAll();
        return false;
    }

private:
    QLineEdit& edit_;
};

/// A directory that this machine does not have would be taken for a file name.
std::string existingDirectory(const std::string& directory) {
    return platform::isDirectory(platform::platformPath(directory)) ? directory : std::string();
}

void browse(CPropFile& file, const FileField& field) {
    file.setTitle(field.title);
    file.setFilter(field.defaultName);
    file.setDefaultSuffix(field.defaultName);
    file.setInitialDirectory(existingDirectory(field.initialDirectory));
    file.browse();
}

} // namespace

CPCBDialog::CPCBDialog(QWidget* parent)
    : CPropDialogTemplate(internalPage("PCB").templateId, parent), ui_(std::make_unique<Ui::CPCBDialog>()) {
    name = internalPage("PCB").name;
}

CPCBDialog::~CPCBDialog() = default;

bool CPCBDialog::buildTemplate() {
    ui_->setupUi(this);
    return true;
}

bool CPCBDialog::OnInitDialog() {
    for (const FileField& field : kFileFields) {
        CPropFile& file = *files_.emplace_back(std::make_unique<OptionalPropFile>(*(ui_.get()->*field.edit)));
        connect(ui_.get()->*field.browse, &QToolButton::clicked, this,
                [&file, &field] { browse(file, field); });
    }
    return true;
}

bool CPCBDialog::onLeave() {
    return isValid();
}

bool CPCBDialog::isValid() {
    // The flags tell of chosen names. What was typed is checked here.
    return std::ranges::all_of(files_,
                               [](const auto& file) { return file->checkField() && file->isValid(); });
}

} // namespace ovsettings
