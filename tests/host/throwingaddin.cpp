// An add-in that throws wherever its page key says so.

#include "ovsettings/propdialogtemplate.h"
#include "ovsettings/propertypagefactory.h"

#include <QtWidgets/QLineEdit>

#include <cstdlib>
#include <stdexcept>
#include <utility>

namespace {

/// Throws when it is filled for the first time.
class Page : public ovsettings::CPropDialogTemplate {
public:
    explicit Page(QWidget* parent) : CPropDialogTemplate(9004, parent) {}

    bool buildTemplate() override {
        edit_ = new QLineEdit(this);
        return true;
    }
    bool OnInitDialog() override {
        if (!std::exchange(isSecond_, true))
            throw std::runtime_error("from OnInitDialog");
        edit_->setText(QStringLiteral("filled"));
        return true;
    }

private:
    QLineEdit* edit_ = nullptr;
    bool isSecond_ = false;
};

class Factory : public ovsettings::CFactory {
public:
    Factory() {
        addPage<Page>("lazy");
        auto starter = std::make_unique<CDialogStarter>();
        kept_ = starter.get();
        addStarter("kept", std::move(starter));
    }
    bool hasPage(const std::string& key) override {
        if (key == "hasPage")
            throw std::runtime_error("from hasPage");
        return true;
    }
    ovsettings::CPropDialogTemplate* createPage(const std::string& key, QWidget* parent) override {
        if (key == "createPage")
            throw 7;
        if (key == "kept" && !kept_->page)
            kept_->page = new Page(nullptr);
        return CFactory::createPage(key, parent);
    }

private:
    CDialogStarter* kept_ = nullptr;
};

} // namespace

extern "C" __attribute__((visibility("default"))) ovsettings::CPropertyPageFactory* getFactory() {
    if (std::getenv("OV_TEST_THROW_IN_GET_FACTORY"))
        throw std::runtime_error("from getFactory");
    static Factory factory;
    return &factory;
}
