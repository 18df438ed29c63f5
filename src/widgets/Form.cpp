// The focus of a form, and the containers.
#include "widgets/Form.h"

#include <algorithm>

namespace vorandine::widgets {

Control* Form::focus() const noexcept {
    return focus_ != nullptr && focus_->usable() ? focus_ : nullptr;
}

bool Form::moveFocus(Control& to) {
    Control* const from = focus();
    if (from == &to)
        return true;
    if (from != nullptr && from->LostFocus) {
        // Put back also when the rule throws.
        struct Leaving {
            Form& form;
            explicit Leaving(Form& f) : form(f) {
                form.leaving_ = true;
                form.claimed_ = nullptr;
            }
            Leaving(const Leaving&) = delete;
            Leaving& operator=(const Leaving&) = delete;
            ~Leaving() { form.leaving_ = false; }
        } const leaving(*this);
        from->LostFocus();
        if (claimed_ != nullptr) {
            focus_ = claimed_;
            return false;
        }
    }
    focus_ = &to;
    return true;
}

void Form::giveFocus(Control& control) {
    if (!control.takesFocus() || !control.usable())
        return;
    if (leaving_)
        claimed_ = &control;
    else
        focus_ = &control;
}

void Form::forget(const Control& gone) noexcept {
    for (const Control* control = focus_; control != nullptr; control = control->parent())
        if (control == &gone) {
            focus_ = nullptr;
            return;
        }
}

std::vector<Control*> Form::tabOrder() const {
    std::vector<Control*> order;
    visit([&](Control& control) {
        if (control.takesFocus())
            order.push_back(&control);
    });
    std::stable_sort(order.begin(), order.end(), [](const Control* a, const Control* b) {
        return a->TabIndex() < b->TabIndex();
    });
    return order;
}

void Form::focusFirst() {
    focus_ = nullptr;
    for (Control* const control : tabOrder())
        if (control->reachable()) {
            focus_ = control;
            return;
        }
}

Control* Form::nextInOrder(bool backwards) const {
    std::vector<Control*> order = tabOrder();
    if (backwards)
        std::reverse(order.begin(), order.end());
    const auto last = std::find(order.begin(), order.end(), focus_);
    if (last != order.end())
        std::rotate(order.begin(), std::next(last), order.end());
    const auto next = std::find_if(order.begin(), order.end(),
                                   [](const Control* control) { return control->reachable(); });
    return next == order.end() ? nullptr : *next;
}

void Form::Unload() {
    if (unloaded_)
        return;
    bool cancel = false;
    if (QueryUnload)
        QueryUnload(cancel);
    unloaded_ = !cancel;
}

void TabContainer::tabs(std::vector<std::string> captions) {
    captions_ = std::move(captions);
    open_.assign(captions_.size(), true);
    tab_ = 0;
}

void TabContainer::check(int tab) const {
    if (tab < 0 || static_cast<std::size_t>(tab) >= open_.size())
        throw Error(errors::OutOfRange, "Il n'y a pas d'onglet " + std::to_string(tab) + ".");
}

void TabContainer::Tab(int tab) {
    check(tab);
    if (tab == tab_)
        return;
    auto previous = static_cast<std::int16_t>(tab_);
    tab_ = tab;
    if (Click)
        Click(previous);
}

bool TabContainer::TabEnabled(int tab) const {
    check(tab);
    return open_[static_cast<std::size_t>(tab)];
}

void TabContainer::TabEnabled(int tab, bool enabled) {
    check(tab);
    open_[static_cast<std::size_t>(tab)] = enabled;
}

bool TabContainer::shows(const Control& child) const noexcept {
    return child.page() < 0 || child.page() == tab_;
}

} // namespace vorandine::widgets
