// Frames paint their own title: a style's group box keeps more room for it than the places leave.
#include "frontends/qt/ContainerViews.h"

#include "frontends/qt/Colours.h"

#include <QGroupBox>
#include <QPainter>
#include <QStyleOptionTabWidgetFrame>
#include <QTabBar>

#include <algorithm>

namespace vorandine::qt {
namespace {

// A group box to assistive tools, a line with a title on it to the eye.
class FrameWidget : public QGroupBox {
  public:
    using QGroupBox::QGroupBox;

  protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        constexpr int Indent = 8;
        QPainter painter(this);
        const QFontMetrics metrics(font());
        const int middle = metrics.height() / 2;
        const QRect text(Indent, 0, metrics.horizontalAdvance(title().trimmed()) + 4,
                         metrics.height());
        constexpr double Faint = 0.3;
        painter.setPen(mixed(palette().color(QPalette::Active, QPalette::WindowText),
                             palette().color(QPalette::Window), Faint));
        painter.setClipRegion(title().isEmpty() ? QRegion(rect())
                                                : QRegion(rect()) - QRegion(text));
        painter.drawRect(rect().adjusted(0, middle, -1, -1));
        painter.setClipping(false);
        painter.setPen(palette().color(foregroundRole()));
        painter.drawText(text, Qt::AlignCenter, title().trimmed());
    }
};

// The pane below the tabs.
class Pane : public QWidget {
  public:
    using QWidget::QWidget;
    QTabBar* bar = nullptr;

  protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        QStyleOptionTabWidgetFrame option;
        option.initFrom(this);
        option.rect = rect().adjusted(0, bar->height() - 1, 0, 0);
        option.lineWidth = 1;
        option.tabBarSize = bar->size();
        option.tabBarRect = bar->geometry();
        option.selectedTabRect = bar->tabRect(bar->currentIndex());
        style()->drawPrimitive(QStyle::PE_FrameTabWidget, &option, &painter, this);
    }
};

} // namespace

FrameView::FrameView(widgets::Frame& frame, QWidget& parent)
    : View(frame, *new FrameWidget(&parent)), frame_(frame) {}

void FrameView::sync() {
    View::sync();
    if (const QString caption = shown(frame_.Caption());
        static_cast<QGroupBox&>(widget()).title() != caption)
        static_cast<QGroupBox&>(widget()).setTitle(caption);
}

TabsView::TabsView(widgets::TabContainer& tabs, QWidget& parent)
    : View(tabs, *new Pane(&parent)), tabs_(tabs) {
    for (std::size_t i = 0; i < tabs.captions().size(); ++i)
        pages_.push_back(new QWidget(&widget()));
    bar_ = new QTabBar(&widget());
    static_cast<Pane&>(widget()).bar = bar_;
    bar_->setExpanding(false);
    bar_->setUsesScrollButtons(false);
    bar_->setElideMode(Qt::ElideNone);
    bar_->setDrawBase(false);
    for (const std::string& caption : tabs.captions())
        bar_->addTab(shown(caption).replace('&', "&&"));
}

QWidget& TabsView::focusTarget() const {
    return *bar_;
}

std::vector<QWidget*> TabsView::sources() const {
    std::vector<QWidget*> all(pages_);
    all.push_back(&widget());
    all.push_back(bar_);
    return all;
}

QWidget& TabsView::ground(int page) {
    const bool known = page >= 0 && static_cast<std::size_t>(page) < pages_.size();
    return known ? *pages_[static_cast<std::size_t>(page)] : widget();
}

void TabsView::layOut(const Scale& scale) {
    View::layOut(scale);
    bar_->setFont(scale.font(false));
    const QSize size = bar_->sizeHint();
    bar_->setGeometry(0, 0, std::min(size.width(), widget().width()), size.height());
    for (QWidget* const page : pages_)
        page->setGeometry(widget().rect());
}

void TabsView::sync() {
    View::sync();
    for (int i = 0; i < bar_->count(); ++i)
        if (bar_->isTabEnabled(i) != tabs_.TabEnabled(i))
            bar_->setTabEnabled(i, tabs_.TabEnabled(i));
    if (bar_->currentIndex() != tabs_.Tab()) {
        bar_->setCurrentIndex(tabs_.Tab());
        widget().update();
    }
    for (std::size_t i = 0; i < pages_.size(); ++i)
        if (const bool front = static_cast<int>(i) == tabs_.Tab();
            pages_[i]->isVisibleTo(&widget()) != front)
            pages_[i]->setVisible(front);
}

SurfaceView::SurfaceView(widgets::Surface& surface, QWidget& parent)
    : View(surface, *new QWidget(&parent)), surface_(surface) {}

void SurfaceView::sync() {
    View::sync();
    const bool waiting = surface_.MousePointer() == widgets::Hourglass;
    if (waiting == (widget().cursor().shape() == Qt::WaitCursor))
        return;
    if (waiting)
        widget().setCursor(Qt::WaitCursor);
    else
        widget().unsetCursor();
}

} // namespace vorandine::qt
