#pragma once

#include "dialog/shell/pagerow.h"
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
    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    /// @param row lives as long as the page.
    Page(QWidget* parent, const PageRow& row);

    const PageRow& row() const { return row_; }

    /// Null until they are handed over. A host may make pages without that.
    Orv::iAppConfiguration* appConfig_ = nullptr;
    Orv::CProjectConfiguration* projectConfig_ = nullptr;

private:
    const PageRow& row_;
};

} // namespace ovsettings
