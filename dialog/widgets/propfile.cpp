#include "dialog/widgets/propfile.h"

#include "dialog/widgets/messagebox.h"
#include "dialog/widgets/plainfiledialog.h"
#include "dialog/widgets/stringconversion.h"
#include "platform/paths.h"
#include "platform/readfile.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFileInfo>
#include <QtWidgets/QLineEdit>

#include <vector>

namespace ovsettings {

namespace {

void tellIncorrectFileName(QWidget& field) {
    showMessage(&field, QCoreApplication::translate("ovsettings", "Incorrect file name!"));
}

/// A pattern that stands in the name field never becomes the chosen file: accepting it lists what matches.
class FileChooser : public PlainFileDialog {
public:
    using PlainFileDialog::PlainFileDialog;

    void accept() override {
        const QString chosen = selectedFiles().value(0);
        const QString pattern = QFileInfo(chosen).fileName();
        if (!pattern.contains(QLatin1Char('*')) || QFileInfo::exists(chosen)) {
            PlainFileDialog::accept();
            return;
        }
        QStringList filters = nameFilters();
        if (!filters.contains(pattern))
            setNameFilters(filters << pattern);
        selectNameFilter(pattern);
    }
};

} // namespace

std::optional<std::string> chooseFile(QWidget* parent, const FileChoice& choice) {
    FileChooser dialog(parent, toQString(choice.title), toQString(choice.initialDirectory),
                       toQString(toolkitFilter(choice.filter)));
    dialog.setOption(QFileDialog::DontUseNativeDialog); // its patterns are handled above
    dialog.setFileMode(QFileDialog::AnyFile);
    if (!choice.defaultName.empty())
        dialog.selectFile(toQString(choice.defaultName));
    // Empty unless the field was given one: its filter, which would serve instead, lists patterns.
    dialog.setDefaultSuffix(toQString(choice.defaultSuffix));
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    return toUtf8(dialog.selectedFiles().value(0));
}

bool CFileValidator::isValid(const std::string& path) const {
    switch (mode_) {
    case existingBareName:
        return platform::isBareName(path) && platform::opensForReading(path);
    case bareName:
        return platform::isBareName(path);
    default:
        return false;
    }
}

CPropFile::CPropFile(QLineEdit& edit) : edit_(edit) {
}

CPropFile::~CPropFile() = default;

void CPropFile::browse() {
    const auto path = chooseFile(edit_.window(), choice_);
    if (!path)
        return;
    if (check(*path)) {
        edit_.setText(toQString(*path));
        return;
    }
    tellIncorrectFileName(edit_);
    edit_.clear();
}

bool CPropFile::check(const std::string& path) {
    if (!validator_)
        return true;
    valid_ = validator_->isValid(path);
    return valid_;
}

bool CPropFile::checkField() {
    const bool accepted = check(toUtf8(edit_.text()));
    if (!accepted)
        tellIncorrectFileName(edit_);
    return accepted;
}

bool CPropFile::isValid() const {
    return valid_;
}

bool CPropFile::canLeave() const {
    return true;
}

void CPropFile::setValidator(const CFileValidator* validator) {
    validator_ = validator;
}

void CPropFile::setInitialDirectory(const std::string& directory) {
    choice_.initialDirectory = directory;
}

void CPropFile::setFilter(const std::string& filter) {
    choice_.filter = filter;
}

void CPropFile::setTitle(const std::string& title) {
    choice_.title = title;
}

void CPropFile::setDefaultName(const std::string& name) {
    choice_.defaultName = name;
}

void CPropFile::setDefaultSuffix(const std::string& suffix) {
    choice_.defaultSuffix = suffix;
}

std::string toolkitFilter(std::string_view pairs) {
    std::vector<std::string> pieces;
    for (auto bar = pairs.find('|'); bar != std::string_view::npos && bar > 0; bar = pairs.find('|')) {
        pieces.emplace_back(pairs.substr(0, bar));
        pairs.remove_prefix(bar + 1);
    }
    std::string filter;
    for (std::size_t i = 0; i + 1 < pieces.size(); i += 2) {
        // The toolkit takes the patterns from the parentheses and wants blanks between them.
        std::string patterns = pieces[i + 1];
        for (char& c : patterns)
            c = c == ';' ? ' ' : c;
        // A name without a dot is matched on the platform that these patterns come from.
        if (patterns == "*.*")
            patterns = "*";
        const std::string description = pieces[i].substr(0, pieces[i].find(" ("));
        filter.append(filter.empty() ? "" : ";;")
            .append(description)
            .append(" (")
            .append(patterns)
            .append(")");
    }
    return filter;
}

} // namespace ovsettings
