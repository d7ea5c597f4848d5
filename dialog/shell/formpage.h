#pragma once

#include "dialog/shell/page.h"
#include "dialog/widgets/settingtip.h"

#include <memory>

namespace ovsettings {

/// A page with a form that uic has made a class of.
/// @tparam Form need be complete only where the page's constructor is defined; what has to know it is kept as
///              functions from there.
/// @tparam Base Page, or a class derived from it.
template <typename Form, typename Base = Page>
class CFormPage : public Base {
public:
    bool buildTemplate() override {
        setUp_(*ui_, this);
        watchSettingTips(*this);
        return true;
    }

protected:
    CFormPage(QWidget* parent, const PageRow& row)
        : Base(parent, row),
          ui_(new Form, [](Form* form) { delete form; }),
          setUp_([](Form& form, QWidget* page) { form.setupUi(page); }) {}

    std::unique_ptr<Form, void (*)(Form*)> ui_;

private:
    void (*setUp_)(Form&, QWidget*);
};

} // namespace ovsettings
