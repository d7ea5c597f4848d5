#include "store/visitobjectdelegator.h"

#include "suite/designdatabase.h"

#include <array>

namespace Orv {

namespace {

using Operation = void (VisitObjectDelegator::*)(iKDS::IObject&);

struct KindRow {
    Operation enter;
    Operation visit;
};

// The kind byte is the index.
constexpr std::array<KindRow, 10> kKinds{{
    {&VisitObjectDelegator::enterBlock, &VisitObjectDelegator::visitBlock},
    {&VisitObjectDelegator::enterPage, &VisitObjectDelegator::visitPage},
    {&VisitObjectDelegator::enterComponent, &VisitObjectDelegator::visitComponent},
    {&VisitObjectDelegator::enterPin, &VisitObjectDelegator::visitPin},
    {&VisitObjectDelegator::enterNet, &VisitObjectDelegator::visitNet},
    {&VisitObjectDelegator::enterBus, &VisitObjectDelegator::visitBus},
    {&VisitObjectDelegator::enterJunction, &VisitObjectDelegator::visitJunction},
    {&VisitObjectDelegator::enterBorder, &VisitObjectDelegator::visitBorder},
    {&VisitObjectDelegator::enterText, &VisitObjectDelegator::visitText},
    {&VisitObjectDelegator::enterGraphic, &VisitObjectDelegator::visitGraphic},
}};

void dispatch(VisitObjectDelegator& visitor, iKDS::IObject& object, Operation KindRow::*operation) {
    if (const unsigned char kind = object.GetKind(); kind < kKinds.size())
        (visitor.*(kKinds[kind].*operation))(object);
}

} // namespace

void VisitObjectDelegator::enter(iKDS::IObject& object) {
    dispatch(*this, object, &KindRow::enter);
}

void VisitObjectDelegator::visit(iKDS::IObject& object) {
    dispatch(*this, object, &KindRow::visit);
}

} // namespace Orv
