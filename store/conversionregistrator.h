#pragma once

#include "store/visitobjectdelegator.h"

#include <span>

// The name is a given one. NOLINTNEXTLINE(bugprone-reserved-identifier)
namespace Orv::Metrics::_UTImpl {

/// Is told of each design object whose lengths are to be converted.
class IConversionTarget {
public:
    virtual void registerObject(iKDS::IObject& object) = 0;
    virtual ~IConversionTarget() = default;
};

/// Hands every object of a list to a target, whatever its class.
class ConversionRegistrator : public VisitObjectDelegator {
public:
    /// The target must outlive the registrator.
    explicit ConversionRegistrator(IConversionTarget& target) : target_(&target) {}

    void walk(std::span<iKDS::IObject* const> objects);

    void visitBlock(iKDS::IObject& object) override { target_->registerObject(object); }
    void visitPage(iKDS::IObject& object) override { target_->registerObject(object); }
    void visitComponent(iKDS::IObject& object) override { target_->registerObject(object); }
    void visitPin(iKDS::IObject& object) override { target_->registerObject(object); }
    void visitNet(iKDS::IObject& object) override { target_->registerObject(object); }
    void visitBus(iKDS::IObject& object) override { target_->registerObject(object); }
    void visitJunction(iKDS::IObject& object) override { target_->registerObject(object); }
    void visitBorder(iKDS::IObject& object) override { target_->registerObject(object); }
    void visitText(iKDS::IObject& object) override { target_->registerObject(object); }
    void visitGraphic(iKDS::IObject& object) override { target_->registerObject(object); }
    void visitGroup(iKDS::IObject& object) override { target_->registerObject(object); }
    void visitAttribute(iKDS::IObject& object) override { target_->registerObject(object); }

private:
    IConversionTarget* target_;
};

} // namespace Orv::Metrics::_UTImpl
