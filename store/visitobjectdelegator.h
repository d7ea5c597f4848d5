#pragma once

namespace iKDS {
class IObject;
}

namespace Orv {

/// A visitor over design objects. The two entry operations look at an object's kind byte and call the first
/// or the second operation of its class; a byte that names no kind does nothing. A group and an attribute
/// belong to another object and have no kind of their own: whoever visits that object calls their operations
/// directly.
class VisitObjectDelegator {
public:
    virtual ~VisitObjectDelegator() = default;

    void enter(iKDS::IObject& object);
    void visit(iKDS::IObject& object);

    virtual void enterBlock(iKDS::IObject&) {}
    virtual void visitBlock(iKDS::IObject&) {}
    virtual void enterPage(iKDS::IObject&) {}
    virtual void visitPage(iKDS::IObject&) {}
    virtual void enterComponent(iKDS::IObject&) {}
    virtual void visitComponent(iKDS::IObject&) {}
    virtual void enterPin(iKDS::IObject&) {}
    virtual void visitPin(iKDS::IObject&) {}
    virtual void enterNet(iKDS::IObject&) {}
    virtual void visitNet(iKDS::IObject&) {}
    virtual void enterBus(iKDS::IObject&) {}
    virtual void visitBus(iKDS::IObject&) {}
    virtual void enterJunction(iKDS::IObject&) {}
    virtual void visitJunction(iKDS::IObject&) {}
    virtual void enterBorder(iKDS::IObject&) {}
    virtual void visitBorder(iKDS::IObject&) {}
    virtual void enterText(iKDS::IObject&) {}
    virtual void visitText(iKDS::IObject&) {}
    virtual void enterGraphic(iKDS::IObject&) {}
    virtual void visitGraphic(iKDS::IObject&) {}
    virtual void enterGroup(iKDS::IObject&) {}
    virtual void visitGroup(iKDS::IObject&) {}
    virtual void enterAttribute(iKDS::IObject&) {}
    virtual void visitAttribute(iKDS::IObject&) {}
};

} // namespace Orv
