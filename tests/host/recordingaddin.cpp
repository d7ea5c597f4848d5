#include "tests/host/recordingaddin.h"

#include "ovsettings/propdialogtemplate.h"
#include "ovsettings/propertypagefactory.h"

#include <QtGui/QKeyEvent>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QVBoxLayout>

Recorder& recorder() {
    static Recorder instance;
    return instance;
}

namespace {

/// A page that writes down what it is asked. The page key is its name; "NoWindow" has a template that fails.
class RecordingPage : public ovsettings::CPropDialogTemplateEx {
public:
    explicit RecordingPage(std::string key) : CPropDialogTemplateEx(9000, nullptr), key_(std::move(key)) {
        name = key_.c_str();
    }
    ~RecordingPage() override { recorder().calls.push_back(key_ + ".deleted"); }

    bool buildTemplate() override {
        if (key_ == "NoWindow")
            return false;
        auto* layout = new QVBoxLayout(this);
        layout->addWidget(new QLineEdit(this));
        return true;
    }
    bool PreTranslateMessage(QKeyEvent* event) override {
        const std::string call = key_ + ".key" + std::to_string(event->key());
        return recorder().answers.contains(call) && asked(call.c_str() + key_.size() + 1);
    }
    bool onOk() override { return asked("onOk"); }
    bool onApply() override { return asked("onApply"); }
    bool onCancel() override { return asked("onCancel"); }
    bool onEnter() override { return asked("onEnter"); }
    bool onLeave() override { return asked("onLeave"); }
    bool isValid() override { return asked("isValid"); }
    bool isModified() const override { return recorder().answers.count(key_ + ".isModified") > 0; }
    int showHelp() override { return asked("showHelp"); }

private:
    bool asked(const char* operation) {
        const std::string call = key_ + "." + operation;
        recorder().calls.push_back(call);
        if (const auto act = recorder().acts.find(call); act != recorder().acts.end())
            act->second();
        const auto answer = recorder().answers.find(call);
        return answer == recorder().answers.end() || answer->second;
    }

    std::string key_;
};

/// Every key is a page; "Null" is one that cannot be made, "Shared" one that is served again and again.
class RecordingFactory : public ovsettings::CPropertyPageFactory {
public:
    ovsettings::CPropDialogTemplate* createPage(const std::string& key, QWidget* parent) override {
        recorder().calls.push_back(key + ".made");
        if (key == "Null")
            return nullptr;
        if (key == "Shared" && shared_)
            return shared_;
        auto* page = new RecordingPage(key);
        page->createWindow(parent);
        if (key == "Shared")
            shared_ = page;
        return page;
    }
    void removePage(const std::string& name) override {
        if (const auto act = recorder().acts.find(name + ".removed"); act != recorder().acts.end())
            act->second();
    }
    bool hasPage(const std::string& key) override { return key != "Unknown"; }
    Orv::IUpdater* getUpdater() override { return recorder().updater; }

private:
    QPointer<ovsettings::CPropDialogTemplate> shared_;
};

} // namespace

extern "C" RECORDING_API ovsettings::CPropertyPageFactory* getFactory() {
    static RecordingFactory factory;
    return &factory;
}
