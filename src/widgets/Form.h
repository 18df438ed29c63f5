// A form: the root of a tree of controls, with the focus, and the end that each form comes to.
// Beside it the containers that stand on forms: frame, tab container, embeddable control.
#pragma once

#include "text/Error.h"
#include "widgets/Control.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace vorandine::widgets {

// The two pointers in use.
constexpr std::int16_t NormalPointer = 0;
constexpr std::int16_t Hourglass = 11;

// A container without a look of its own, over which the mouse has the pointer that it is given.
class Surface : public Container {
  public:
    [[nodiscard]] std::int16_t MousePointer() const noexcept { return mousePointer_; }
    void MousePointer(std::int16_t pointer) noexcept { mousePointer_ = pointer; }

  private:
    std::int16_t mousePointer_ = NormalPointer;
};

class Form : public Surface {
  public:
    [[nodiscard]] Kind kind() noexcept override { return this; }
    [[nodiscard]] ConstKind kind() const noexcept override { return this; }
    [[nodiscard]] Form* form() noexcept override { return this; }
    [[nodiscard]] const Form* form() const noexcept override { return this; }

    [[nodiscard]] const std::string& Caption() const noexcept { return caption_; }
    void Caption(std::string caption) { caption_ = std::move(caption); }

    // The control that has the focus; null if none, or if it can no longer be used.
    [[nodiscard]] Control* focus() const noexcept;
    // Moves the focus as a user does: the leaving rule of the control left runs first. False if it
    // gave the focus back. What the rule throws goes through; the focus has then not moved.
    bool moveFocus(Control& to);
    // The first control in tab order that can have the focus gets it; no leaving rule runs.
    void focusFirst();
    // The next (or previous) one in tab order, round at the ends, counted from the place of the
    // control that had the focus last; null if none can have it.
    [[nodiscard]] Control* nextInOrder(bool backwards) const;

    // Ends the form unless `QueryUnload` sets its argument. Controls stay as they are; who owns the
    // form destroys it once no handler of it runs any more.
    void Unload();
    [[nodiscard]] bool unloaded() const noexcept { return unloaded_; }
    std::function<void(bool& cancel)> QueryUnload;

    // What the window's own close button does instead of Unload; false means that it can't now.
    std::function<bool()> CloseButton;
    // The host's ear: an error that left a handler of this form. Must not throw.
    std::function<void(const Error&)> Failed;

  private:
    friend class Control;
    friend class Container;
    void giveFocus(Control& control);
    // `gone` is taken off the form: neither it nor what stands in it has the focus any more.
    void forget(const Control& gone) noexcept;
    [[nodiscard]] std::vector<Control*> tabOrder() const;

    std::string caption_;
    Control* focus_ = nullptr;   // kept when it becomes unusable: its place in the order counts
    bool leaving_ = false;       // a leaving rule is running
    Control* claimed_ = nullptr; // to which it gave the focus
    bool unloaded_ = false;
};

class Frame : public Container {
  public:
    [[nodiscard]] Kind kind() noexcept override { return this; }
    [[nodiscard]] ConstKind kind() const noexcept override { return this; }

    [[nodiscard]] const std::string& Caption() const noexcept { return caption_; }
    void Caption(std::string caption) { caption_ = std::move(caption); }

  private:
    std::string caption_;
};

class TabContainer : public Container {
  public:
    [[nodiscard]] Kind kind() noexcept override { return this; }
    [[nodiscard]] ConstKind kind() const noexcept override { return this; }

    // One tab for each caption, all open.
    void tabs(std::vector<std::string> captions);
    [[nodiscard]] const std::vector<std::string>& captions() const noexcept { return captions_; }

    // The tab in front, from 0. Setting it runs Click if it changes; a number out of range throws
    // Error(OutOfRange). Code may bring a closed tab to the front, a user may not.
    [[nodiscard]] int Tab() const noexcept { return tab_; }
    void Tab(int tab);
    [[nodiscard]] bool TabEnabled(int tab) const;
    void TabEnabled(int tab, bool enabled);

    // Gets the tab that was in front before.
    std::function<void(std::int16_t& previousTab)> Click;

    [[nodiscard]] bool takesFocus() const noexcept override { return true; }
    [[nodiscard]] bool shows(const Control& child) const noexcept override;

  private:
    std::vector<std::string> captions_;
    std::vector<bool> open_;
    int tab_ = 0;

    void check(int tab) const;
};

// A control made of controls, which a host places on one of its forms.
class UserControl : public Surface {
  public:
    [[nodiscard]] Kind kind() noexcept override { return this; }
    [[nodiscard]] ConstKind kind() const noexcept override { return this; }
};

} // namespace vorandine::widgets
