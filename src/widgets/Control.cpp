// Names, the tree of controls, and what a user can reach in it.
#include "widgets/Control.h"

#include "widgets/Kinds.h"

#include <algorithm>
#include <utility>

namespace vorandine::widgets {
namespace {

bool contains(const Place& outer, const Place& inner) {
    return outer.left <= inner.left && outer.top <= inner.top &&
           outer.left + outer.width >= inner.left + inner.width &&
           outer.top + outer.height >= inner.top + inner.height;
}

} // namespace

void Control::identify(std::string name, int index) {
    name_ = std::move(name);
    index_ = index;
}

std::string Control::fullName() const {
    return index_ < 0 ? name_ : name_ + "(" + std::to_string(index_) + ")";
}

Form* Control::form() noexcept {
    return parent_ != nullptr ? parent_->form() : nullptr;
}

const Form* Control::form() const noexcept {
    return parent_ != nullptr ? parent_->form() : nullptr;
}

bool Control::usable() const noexcept {
    for (const Control* control = this; control != nullptr; control = control->parent_) {
        if (!control->enabled_ || !control->visible_)
            return false;
        if (control->parent_ != nullptr && !control->parent_->shows(*control))
            return false;
    }
    return true;
}

bool Control::covered() const noexcept {
    if (parent_ == nullptr)
        return false;
    const auto& siblings = parent_->children();
    const auto self = std::find(siblings.begin(), siblings.end(), this);
    return self != siblings.end() &&
           std::any_of(std::next(self), siblings.end(), [this](const Control* sibling) {
               return sibling->visible_ && parent_->shows(*sibling) &&
                      contains(sibling->place_, place_);
           });
}

bool Control::reachable() const noexcept {
    if (!usable())
        return false;
    for (const Control* control = this; control->parent_ != nullptr; control = control->parent_)
        if (control->covered())
            return false;
    return true;
}

void Control::SetFocus() {
    if (Form* const root = form())
        root->giveFocus(*this);
}

void Container::add(Control& child, int page) {
    child.parent_ = this;
    child.page_ = page;
    children_.push_back(&child);
}

void Container::remove(Control& child) noexcept {
    const auto found = std::find(children_.begin(), children_.end(), &child);
    if (found == children_.end())
        return;
    if (Form* const root = form())
        root->forget(child);
    children_.erase(found);
    child.parent_ = nullptr;
}

bool Container::shows(const Control& /*child*/) const noexcept {
    return true;
}

void Container::visit(const std::function<void(Control&)>& visitor) const {
    for (Control* const child : children_) {
        visitor(*child);
        if (const auto* const container = as<Container>(child))
            container->visit(visitor);
    }
}

Control* Container::find(const std::string& fullName) const {
    Control* found = nullptr;
    visit([&](Control& control) {
        if (found == nullptr && control.fullName() == fullName)
            found = &control;
    });
    return found;
}

} // namespace vorandine::widgets
