// Labels, buttons, option buttons and scroll bars.
#pragma once

#include "frontends/qt/View.h"
#include "widgets/Simple.h"

class QLabel;
class QPushButton;
class QRadioButton;
class QScrollBar;

namespace vorandine::qt {

// Takes the room that its caption needs, up to its neighbour; what is still too long ends in an
// ellipsis and shows whole in a tool tip.
class LabelView : public View {
  public:
    LabelView(widgets::Label& label, QWidget& parent);
    void layOut(const Scale& scale) override;
    void sync() override;

  private:
    widgets::Label& label_;
    QLabel& native_;
    QRect place_;
    int room_ = 0; // pixels up to the neighbour on the right
    QString caption_;
    bool fresh_ = false; // laid out since the caption was shown

    [[nodiscard]] int roomInTwips() const;
    [[nodiscard]] int rowHeight() const;
    void showWrapped(const QString& caption);
};

class ButtonView : public View {
  public:
    ButtonView(widgets::CommandButton& button, QWidget& parent);
    void layOut(const Scale& scale) override;
    void sync() override;

  private:
    widgets::CommandButton& button_;
    QPushButton& native_;
};

class OptionView : public View {
  public:
    OptionView(widgets::OptionButton& option, QWidget& parent);
    void sync() override;

  private:
    widgets::OptionButton& option_;
    QRadioButton& native_;
};

class BarView : public View {
  public:
    BarView(widgets::ScrollBar& bar, QWidget& parent);
    void sync() override;

  private:
    widgets::ScrollBar& bar_;
    QScrollBar& native_;
};

} // namespace vorandine::qt
