#pragma once

#include "ovsettings/propdialogtemplate.h"

namespace ovsettings {

/// What the pages of this library have in common: they keep the configurations that are handed over, have a
/// topic in the reference book of the online help, and store at OK what they store at Apply.
class Page : public CPropDialogTemplateEx {
    Q_OBJECT

public:
    ~Page() override;

    void setAppConfiguration(Orv::iAppConfiguration* appConfig) override;
    void setProjectConfiguration(Orv::CProjectConfiguration* projectConfig) override;
    bool onOk() override;

protected:
    /// @param pageName lives as long as the page; empty if the page only learns it later.
    /// @param topic    empty if the page has none.
    Page(QWidget* parent, unsigned templateId, const char* pageName, const char* topic = "");

    /// Null until they are handed over. A host may make pages without that.
    Orv::iAppConfiguration* appConfig_ = nullptr;
    Orv::CProjectConfiguration* projectConfig_ = nullptr;
};

} // namespace ovsettings
