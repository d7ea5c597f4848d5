#pragma once

#include "orv/appconfiguration.h"

#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace Orv {

/// The numbers and graphics by row. While a row's cache is ahead of its text, the text follows it.
class TypedCache {
public:
    TypedCache();

    // The arrays stay where they are as long as the cache lives.
    const float* numbers() const { return numbers_.data(); }
    const Graphics* graphics() const { return graphics_.data(); }
    const bool* hasGraphics() const { return hasGraphics_.get(); }

    /// Holds what the catalogue says; nothing before the first call.
    void restart();
    /// Takes over what a property's fields say.
    void refresh(std::size_t row, std::span<const std::string_view> fields);
    void refresh(std::size_t row, const std::vector<std::string>& fields);
    /// Brings a property's text up to date.
    void print(std::size_t row, iAppConfiguration::Property& property) const;

    bool hasNumber(std::size_t row) const { return hasNumber_[row]; }
    bool hasGraphics(std::size_t row) const { return hasGraphics_[row]; }
    bool isCached(std::size_t row) const { return hasNumber(row) || hasGraphics(row); }
    void setNumber(std::size_t row, float number) { numbers_[row] = number; }
    void setGraphics(std::size_t row, const Graphics& graphics) { graphics_[row] = graphics; }

private:
    std::vector<float> numbers_;
    std::vector<Graphics> graphics_;
    std::vector<bool> hasNumber_;
    std::unique_ptr<bool[]> hasGraphics_;
};

} // namespace Orv
