#include "ovsettings/propdialogtemplate.h"

#include "platform/printable.h"
#include "suite/help.h"

#include <cstdlib>
#include <cxxabi.h>
#include <memory>
#include <typeinfo>

namespace ovsettings {

namespace {

/// The bare class name, without its namespaces, as a developer would search for it.
std::string runtimeClassName(const CPropDialogTemplate& page) {
    const std::type_info& type = typeid(page);
    const std::unique_ptr<char, decltype(&std::free)> readable(
        abi::__cxa_demangle(type.name(), nullptr, nullptr, nullptr), &std::free);
    std::string className = readable ? readable.get() : type.name();
    if (const auto colon = className.rfind(':'); colon != std::string::npos)
        className.erase(0, colon + 1);
    return className;
}

} // namespace

CPropDialogTemplate::CPropDialogTemplate(unsigned templateId, QWidget* parent)
    : QWidget(parent), templateId_(templateId) {
}

CPropDialogTemplate::~CPropDialogTemplate() = default;

bool CPropDialogTemplate::PreTranslateMessage(QKeyEvent*) {
    return false;
}

bool CPropDialogTemplate::buildTemplate() {
    return true;
}

bool CPropDialogTemplate::OnInitDialog() {
    return true;
}

const char* CPropDialogTemplate::pageName() const {
    return name;
}

unsigned CPropDialogTemplate::dialogId() const {
    return templateId_;
}

bool CPropDialogTemplate::createWindow(QWidget* parent) {
    setParent(parent);
    // Without this call the page would be shown together with its parent.
    hide();
    if (window_ == Window::filled) // a factory may serve one page under several keys
        return true;
    try {
        if (window_ == Window::none && buildTemplate())
            window_ = Window::built;
        if (window_ == Window::built) {
            OnInitDialog();
            window_ = Window::filled;
            return true;
        }
    } catch (...) {
        setParent(nullptr); // what is not filled must be neither shown nor stored
        throw;
    }
    setParent(nullptr);
    platform::tell("OvSettings: Cannot create property page dialog '" + runtimeClassName(*this) +
                   "' with IDD=" + std::to_string(templateId_) + " and state in 'OvSettings'");
    // True all the same, as callers count on: a page that failed stays in the dialog, with nothing to show.
    return true;
}

bool CPropDialogTemplate::onOk() {
    return true;
}

bool CPropDialogTemplate::onApply() {
    return true;
}

bool CPropDialogTemplate::onCancel() {
    return true;
}

bool CPropDialogTemplate::onEnter() {
    return true;
}

bool CPropDialogTemplate::onLeave() {
    return true;
}

bool CPropDialogTemplate::isValid() {
    return true;
}

bool CPropDialogTemplate::isModified() const {
    return false;
}

int CPropDialogTemplate::showHelp() {
    return OlhHelpCall(helpBook.c_str(), helpTopic.c_str(), 0);
}

CPropDialogTemplateEx::CPropDialogTemplateEx(unsigned templateId, QWidget* parent)
    : CPropDialogTemplate(templateId, parent) {
}

CPropDialogTemplateEx::~CPropDialogTemplateEx() = default;

void CPropDialogTemplateEx::setAppConfiguration(Orv::iAppConfiguration*) {
}

void CPropDialogTemplateEx::setProjectConfiguration(Orv::CProjectConfiguration*) {
}

} // namespace ovsettings
