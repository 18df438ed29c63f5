// What a control is: the one way to ask. Who has something to do for every kind says so kind by
// kind, and a kind that he has forgotten does not compile.
#pragma once

#include "widgets/Form.h"
#include "widgets/ListBox.h"
#include "widgets/Simple.h"
#include "widgets/TextField.h"

#include <utility>
#include <variant>

namespace vorandine::widgets {

template <typename... Case>
struct Cases : Case... {
    using Case::operator()...;
};

// Calls the one of `cases` that takes the control's kind, and gives what it gives; all give the
// same type. A case that takes a base (`TextField&`, `Container&`) stands for the kinds derived
// from it that have no case of their own, one that takes `Control&` for all others: leave that one
// out where a new kind must not be passed over.
//
//     match(control, [&](ListBox& list) { … }, [&](TextField& field) { … }, [](Control&) {});
template <typename... Case>
decltype(auto) match(Control& control, Case... cases) {
    return std::visit([all = Cases<Case...>{std::move(cases)...}](
                          auto* kind) -> decltype(auto) { return all(*kind); },
                      control.kind());
}
template <typename... Case>
decltype(auto) match(const Control& control, Case... cases) {
    return std::visit([all = Cases<Case...>{std::move(cases)...}](
                          const auto* kind) -> decltype(auto) { return all(*kind); },
                      control.kind());
}

// The control as the one kind, or as the base of kinds, that is asked for; null if it is of
// another, or null.
template <typename Wanted>
Wanted* as(Control* control) {
    return control == nullptr ? nullptr
                              : match(
                                    *control, [](Wanted& wanted) { return &wanted; },
                                    [](Control& /*other*/) -> Wanted* { return nullptr; });
}
template <typename Wanted>
const Wanted* as(const Control* control) {
    return control == nullptr
               ? nullptr
               : match(
                     *control, [](const Wanted& wanted) { return &wanted; },
                     [](const Control& /*other*/) -> const Wanted* { return nullptr; });
}

} // namespace vorandine::widgets
