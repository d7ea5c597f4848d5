#include "tests/support/projectfixture.h"

#include "dialog/shell/internalpages.h"
#include "dialog/widgets/stringconversion.h"

#include <QtCore/QStringList>
#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>

#include <sstream>

using ovsettings::toQString;
using ovsettings::toUtf8;

const SeenBox kSaveQuestion{"Project Settings", "Do you want to save the changes you've made in this page?",
                            QMessageBox::Question};

ProjectPages::ProjectPages() {
    std::filesystem::create_directories(installation_.standard());
}

void ProjectPages::openProject(const std::string& text) {
    closePage();
    testsupport::writeFile(projectPath(), text);
    std::string error;
    project_ = NProjectTools::COpenProject::open(projectPath().string(), error);
    ASSERT_NE(project_, nullptr) << error;
    ovsettings::registerInternalPages(factory_, &project());
    factory_.setConfigurations(&appConfig_, &project());
}

ovsettings::CPropDialogTemplate& ProjectPages::openPage(const std::string& key) {
    closePage();
    page_ = factory_.createPage(key, &window_);
    if (!page_)
        throw std::runtime_error("no page " + key);
    window_.show();
    page_->show();
    page_->onEnter();
    return *page_;
}

void ProjectPages::closePage() {
    delete page_;
    page_ = nullptr;
}

std::unique_ptr<NProjectTools::CProjectFile> ProjectPages::onDisk() const {
    return std::make_unique<NProjectTools::CProjectFileUtilitiesLight>(projectPath().c_str());
}

std::string ProjectPages::stored(const std::string& key) const {
    return onDisk()->GetValue("DesignInfo", key);
}

std::vector<std::string> ProjectPages::keysInFile() const {
    std::vector<std::string> keys;
    std::istringstream lines(testsupport::readFile(projectPath()));
    for (std::string line; std::getline(lines, line);) {
        if (const auto equals = line.find('='); equals != std::string::npos)
            keys.push_back(line.substr(0, equals));
    }
    return keys;
}

void ProjectPages::type(const std::string& caption, const std::string& text) {
    QWidget& edit = control<QWidget>(caption);
    QTest::keyClick(&edit, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&edit, Qt::Key_Delete);
    if (text.empty())
        return;
    QGuiApplication::clipboard()->setText(toQString(text));
    QTest::keyClick(&edit, Qt::Key_V, Qt::ControlModifier);
}

std::string ProjectPages::shown(const std::string& caption) {
    return toUtf8(control<QLineEdit>(caption).text());
}
