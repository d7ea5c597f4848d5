#pragma once

#include "suite/export.h"

#include <list>
#include <string>

namespace Orv::Metrics {

/// A display unit. The identifiers are stable and may be stored.
class OVSUITE_API Unit {
public:
    enum Id : int { thousandth = 1, millimetre = 2, centimetre = 3, inch = 4 };

    Unit(Id id = inch) : id_(id) {}
    operator Id() const { return id_; }

private:
    Id id_;
};

/// What is known of a unit.
class OVSUITE_API UnitTraits {
public:
    explicit UnitTraits(Unit unit) : unit_(unit) {}

    int Precision() const;            ///< number of decimals shown
    std::string Abbreviation() const; ///< short name, the text kept in the configuration
    std::string FullName() const;     ///< name shown in lists

    /// The configuration key that holds the abbreviation of the unit in use.
    static const char* GetUnitCfgKey();

private:
    Unit unit_;
};

/// A data resolution: the scale of stored integers.
class OVSUITE_API Resolution {
public:
    enum Id : int {
        low = 1,  ///< 1,000 units to the inch
        high = 2, ///< 2,540,000 units to the inch, one unit is 10 nm
    };

    Resolution(Id id = low) : id_(id) {}
    /// An identifier that is none gives `low`.
    explicit Resolution(int id);
    /// From the text form; a text that is none gives `low`, which is what data without any mark is in.
    explicit Resolution(const char* text);
    explicit Resolution(const std::string& text);

    Id id() const { return id_; }
    /// Units to the inch.
    double unitsPerInch() const;
    /// The text form, the identifier in decimal; valid for the life of the process.
    operator const char*() const;
    bool operator==(const Resolution& other) const { return id_ == other.id_; }

    /// The name of the attribute in which a design object keeps its resolution.
    static const char* GetResolutionSpecAttribute();

private:
    Id id_;
};

/// Converts between a display value and a stored integer. Stored integers are rounded half away from zero and
/// kept within the range of long; a value that is not a number converts to 0.
class OVSUITE_API Convert {
public:
    Convert(double value, Unit unit);
    Convert(long value, Resolution resolution);

    double To(Unit unit) const;
    long To(Resolution resolution) const;

private:
    long double inches_;
};

/// Converts a stored integer from one resolution to another, rounding half away from zero.
class OVSUITE_API RConvert {
public:
    RConvert(long value, Resolution resolution);
    long To(Resolution resolution) const;

private:
    long value_;
    Resolution resolution_;
};

/// All units on offer, in the order in which lists show them. Appends nothing but them: the list is cleared
/// first.
OVSUITE_API void ListAvaibleUnits(std::list<Unit>& units);

/// The unit of an abbreviation, compared exactly; inches for an unknown one.
OVSUITE_API Unit FindUnitByAbbreviation(const std::string& abbreviation);

} // namespace Orv::Metrics
