// What every widget has: a name, a place, flags, a parent. Widgets hold the truth; a front end only
// mirrors them and sends gestures (widgets/Gestures.h).
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace vorandine::widgets {

class Label;
class CommandButton;
class OptionButton;
class ScrollBar;
class TextBox;
class ComboBox;
class ListBox;
class Frame;
class TabContainer;
class UserControl;
class Form;
class Container;

// Every kind of control there is; widgets/Kinds.h asks for it.
template <typename... Kinds>
struct OneOf {
    using Pointer = std::variant<Kinds*...>;
    using ConstPointer = std::variant<const Kinds*...>;
};
using AllKinds = OneOf<Label, CommandButton, OptionButton, ScrollBar, TextBox, ComboBox, ListBox,
                       Frame, TabContainer, UserControl, Form>;
using Kind = AllKinds::Pointer;
using ConstKind = AllKinds::ConstPointer;

// In twips, 1440 to the inch, from the parent's corner (on a tab: from the tab container's).
struct Place {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
};

struct MouseEvent {
    int button = 1; // 1 left, 2 right, 4 middle
    int shift = 0;  // 1 shift, 2 control, 4 alt, added up
    float x = 0;    // twips, from the control's corner
    float y = 0;
};

// A widget stands where its maker put it and is owned by him; containers only refer to it, so it
// must outlive its container's use. Not copyable, not movable: events hold on to it.
class Control {
  public:
    Control() = default;
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;
    virtual ~Control() = default;

    // The control as what it is. What a host derives from a kind is of that kind.
    [[nodiscard]] virtual Kind kind() noexcept = 0;
    [[nodiscard]] virtual ConstKind kind() const noexcept = 0;

    // `index` is the number in a control array, -1 outside one.
    void identify(std::string name, int index = -1);
    [[nodiscard]] const std::string& Name() const noexcept { return name_; }
    [[nodiscard]] int Index() const noexcept { return index_; }
    // "Cmd_OK", "Txt_ExpProfAidant(3)".
    [[nodiscard]] std::string fullName() const;

    // The control's own flags, whatever it stands in.
    [[nodiscard]] bool Enabled() const noexcept { return enabled_; }
    void Enabled(bool enabled) noexcept { enabled_ = enabled; }
    [[nodiscard]] bool Visible() const noexcept { return visible_; }
    void Visible(bool visible) noexcept { visible_ = visible; }

    [[nodiscard]] int TabIndex() const noexcept { return tabIndex_; }
    void TabIndex(int index) noexcept { tabIndex_ = index; }

    [[nodiscard]] const Place& place() const noexcept { return place_; }
    void place(const Place& place) noexcept { place_ = place; }
    [[nodiscard]] bool fixedPitch() const noexcept { return fixedPitch_; }
    void fixedPitch(bool fixed) noexcept { fixedPitch_ = fixed; }

    // What the control is for, where neither caption nor label tells; "" where they do.
    [[nodiscard]] const std::string& hint() const noexcept { return hint_; }
    void hint(std::string hint) { hint_ = std::move(hint); }

    // Gives this control the focus; no leaving rule runs. Inside a leaving rule, it means that the
    // focus may not leave. Nothing happens if the control cannot have the focus.
    void SetFocus();

    // Runs when the focus leaves by a gesture of the user: the leaving rule.
    std::function<void()> LostFocus;
    std::function<void(const MouseEvent&)> MouseDown;
    // Something was dropped here that was dragged from `source`.
    std::function<void(Control& source)> DragDrop;

    [[nodiscard]] virtual bool takesFocus() const noexcept { return true; }

    [[nodiscard]] Container* parent() const noexcept { return parent_; }
    // The tab on which the control stands, -1 if its parent has none.
    [[nodiscard]] int page() const noexcept { return page_; }
    // The form at the root; null while the control stands on none.
    [[nodiscard]] virtual Form* form() noexcept;
    [[nodiscard]] virtual const Form* form() const noexcept;

    // Whether the control and all that it stands in are enabled and visible, on a tab in front.
    [[nodiscard]] bool usable() const noexcept;
    // Whether a sibling that stands above, and is shown, hides it from edge to edge.
    [[nodiscard]] bool covered() const noexcept;
    // usable(), and neither it nor what it stands in is covered.
    [[nodiscard]] bool reachable() const noexcept;

  private:
    friend class Container;
    std::string name_;
    std::string hint_;
    int index_ = -1;
    bool enabled_ = true;
    bool visible_ = true;
    bool fixedPitch_ = false;
    int tabIndex_ = 0;
    Place place_;
    Container* parent_ = nullptr;
    int page_ = -1;
};

// A control that others stand in.
class Container : public Control {
  public:
    // Puts `child` above those that stand here already, on tab `page` where there are tabs.
    void add(Control& child, int page = -1);
    void remove(Control& child) noexcept;
    [[nodiscard]] const std::vector<Control*>& children() const noexcept { return children_; }

    [[nodiscard]] bool takesFocus() const noexcept override { return false; }
    [[nodiscard]] virtual bool shows(const Control& child) const noexcept;

    // All controls below, depth first, in the order in which they were added.
    void visit(const std::function<void(Control&)>& visitor) const;
    // By full name; null if there is none.
    [[nodiscard]] Control* find(const std::string& fullName) const;

  private:
    std::vector<Control*> children_;
};

} // namespace vorandine::widgets
