// What others stand in: frame, tab container, and the bare surface of a form or of an embeddable
// control.
#pragma once

#include "frontends/qt/View.h"

class QTabBar;

namespace vorandine::qt {

class FrameView : public View {
  public:
    FrameView(widgets::Frame& frame, QWidget& parent);
    void sync() override;

  private:
    widgets::Frame& frame_;
};

class TabsView : public View {
  public:
    TabsView(widgets::TabContainer& tabs, QWidget& parent);
    [[nodiscard]] QTabBar& bar() const noexcept { return *bar_; }

    [[nodiscard]] QWidget& focusTarget() const override;
    [[nodiscard]] std::vector<QWidget*> sources() const override;
    [[nodiscard]] QWidget& ground(int page) override;
    void layOut(const Scale& scale) override;
    void sync() override;

  private:
    widgets::TabContainer& tabs_;
    std::vector<QWidget*> pages_;
    QTabBar* bar_;
};

class SurfaceView : public View {
  public:
    SurfaceView(widgets::Surface& surface, QWidget& parent);
    void sync() override;

  private:
    widgets::Surface& surface_;
};

} // namespace vorandine::qt
