// A page of a shared library: who reviews the project. It keeps its value in the project file, and its
// updater tells, on standard output, when the user has changed it.

#include <orv/projectconfiguration.h>
#include <orv/projectfiledata.h>
#include <orv/updater.h>
#include <ovsettings/propdialogtemplate.h>
#include <ovsettings/propertypagefactory.h>
#include <ovsettings/updatehost.h>

#include <QtWidgets/QFormLayout>
#include <QtWidgets/QLineEdit>

#include <iostream>

namespace {

constexpr char kPage[] = "Review"; // the page's key in the catalogue, and its name to the updater
constexpr char kSection[] = "ReviewAddin";
constexpr char kReviewer[] = "Reviewer";

class ReviewPage : public ovsettings::CPropDialogTemplateEx {
public:
    explicit ReviewPage(QWidget* parent) : CPropDialogTemplateEx(1, parent) { name = kPage; }

    void setProjectConfiguration(Orv::CProjectConfiguration* projectConfig) override {
        project_ = projectConfig ? projectConfig->projectFile : nullptr;
    }

    // Runs before OnInitDialog, and once. A form compiled with uic would be set up here.
    bool buildTemplate() override {
        auto* layout = new QFormLayout(this);
        reviewer_ = new QLineEdit(this);
        layout->addRow(QStringLiteral("&Reviewer"), reviewer_);
        reviewer_->setEnabled(project_ != nullptr);
        return true;
    }

    bool OnInitDialog() override {
        stored_ = project_ ? project_->GetValue(kSection, kReviewer) : std::string();
        reviewer_->setText(QString::fromStdString(stored_));
        return true;
    }

    bool isModified() const override { return project_ && reviewer_->text().toStdString() != stored_; }

    bool onOk() override { return onApply(); }

    bool onApply() override {
        if (isModified()) {
            stored_ = reviewer_->text().toStdString();
            project_->SetValue(kSection, kReviewer, stored_);
        }
        return true;
    }

private:
    Orv::IProjectFileData* project_ = nullptr;
    QLineEdit* reviewer_ = nullptr;
    std::string stored_;
};

class Updater : public Orv::IUpdater {
public:
    bool updateSettings(ovsettings::IUpdateHost* host) override {
        if (host->isPageChanged(kPage))
            std::cout << "review add-in: the reviewer has changed" << std::endl;
        return true;
    }
};

class Factory : public ovsettings::CFactoryEx {
public:
    Factory() { addPage<ReviewPage>(kPage); }
    Orv::IUpdater* getUpdater() override { return &updater_; }

private:
    Updater updater_;
};

} // namespace

extern "C" __attribute__((visibility("default"))) ovsettings::CPropertyPageFactory* getFactory() {
    static Factory factory;
    return &factory;
}
