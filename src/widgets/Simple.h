// The small widgets: label, button, option button, scroll bar, and the popup menu.
#pragma once

#include "widgets/Control.h"

#include <functional>
#include <string>
#include <vector>

namespace vorandine::widgets {

// A control with a fixed text and, apart from it, the letter that reaches it from the keyboard
// (0: none).
class Captioned : public Control {
  public:
    [[nodiscard]] const std::string& Caption() const noexcept { return caption_; }
    void Caption(std::string caption) { caption_ = std::move(caption); }
    [[nodiscard]] char mnemonic() const noexcept { return mnemonic_; }
    void mnemonic(char letter) noexcept { mnemonic_ = letter; }

  private:
    std::string caption_;
    char mnemonic_ = 0;
};

class Label : public Captioned {
  public:
    [[nodiscard]] Kind kind() noexcept override { return this; }
    [[nodiscard]] ConstKind kind() const noexcept override { return this; }

    [[nodiscard]] bool takesFocus() const noexcept override { return false; }

    // Whether its text, where it has any, must be noticed and read, in a disabled frame too.
    [[nodiscard]] bool notice() const noexcept { return notice_; }
    void notice(bool notice) noexcept { notice_ = notice; }

    // Whether its place is high enough for several lines: a longer text then goes on below.
    [[nodiscard]] bool wraps() const noexcept { return place().height >= 2 * LineHeight; }

  private:
    static constexpr int LineHeight = 195; // twips
    bool notice_ = false;
};

class CommandButton : public Captioned {
  public:
    [[nodiscard]] Kind kind() noexcept override { return this; }
    [[nodiscard]] ConstKind kind() const noexcept override { return this; }

    std::function<void()> Click;

    // Where Escape looks for a button to press: from 1 upward, the first that can be pressed.
    // 0: Escape never presses it.
    [[nodiscard]] int cancelRank() const noexcept { return cancelRank_; }
    void cancelRank(int rank) noexcept { cancelRank_ = rank; }

  private:
    int cancelRank_ = 0;
};

// The option buttons of one container exclude each other.
class OptionButton : public Captioned {
  public:
    [[nodiscard]] Kind kind() noexcept override { return this; }
    [[nodiscard]] ConstKind kind() const noexcept override { return this; }

    [[nodiscard]] bool Value() const noexcept { return value_; }
    // Selecting one deselects its neighbours, and runs Click if it was not selected before.
    void Value(bool value);
    std::function<void()> Click;

  private:
    bool value_ = false;
};

// Max is free (-1 for an empty table); Value is held between 0 and Max, 0 where Max is below 0.
class ScrollBar : public Control {
  public:
    [[nodiscard]] Kind kind() noexcept override { return this; }
    [[nodiscard]] ConstKind kind() const noexcept override { return this; }

    [[nodiscard]] int Max() const noexcept { return max_; }
    void Max(int max);
    [[nodiscard]] int Value() const noexcept { return value_; }
    // Runs Change if the value held changes, as Max does.
    void Value(int value);
    std::function<void()> Change;

  private:
    int max_ = 0;
    int value_ = 0;
};

// A menu, or an entry of one. The maker owns the entries.
class Menu {
  public:
    Menu(std::string name, std::string caption, bool visible)
        : name_(std::move(name)), caption_(std::move(caption)), visible_(visible) {}
    Menu(const Menu&) = delete;
    Menu& operator=(const Menu&) = delete;
    ~Menu() = default;

    [[nodiscard]] const std::string& Name() const noexcept { return name_; }
    [[nodiscard]] const std::string& Caption() const noexcept { return caption_; }
    [[nodiscard]] bool Visible() const noexcept { return visible_; }
    void Visible(bool visible) noexcept { visible_ = visible; }
    [[nodiscard]] std::vector<Menu*>& entries() noexcept { return entries_; }
    std::function<void()> Click;

  private:
    std::string name_;
    std::string caption_;
    bool visible_;
    std::vector<Menu*> entries_;
};

} // namespace vorandine::widgets
