#pragma once

#include "platform/error.h"

#include <type_traits>
#include <utility>
#include <variant>

namespace platform {

/// What was asked for, or why there is none of it.
template <typename Value = void>
class [[nodiscard]] Result {
    using Held = std::conditional_t<std::is_void_v<Value>, std::monostate, Value>;

public:
    Result(Held value = {}) : state_(std::in_place_index<0>, std::move(value)) {}
    Result(Error error) : state_(std::in_place_index<1>, std::move(error)) {}

    explicit operator bool() const { return state_.index() == 0; }

    Held& operator*() { return *std::get_if<0>(&state_); }
    const Held& operator*() const { return *std::get_if<0>(&state_); }
    Held* operator->() { return std::get_if<0>(&state_); }
    const Held* operator->() const { return std::get_if<0>(&state_); }

    const Error& error() const { return *std::get_if<1>(&state_); }
    /// That of the error; 0 where there is none.
    int code() const { return *this ? 0 : error().code; }
    /// That of the error; empty where there is none.
    std::string errorText() const { return *this ? std::string() : error().text(); }

private:
    std::variant<Held, Error> state_;
};

} // namespace platform
