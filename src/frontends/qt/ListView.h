// List boxes. The native view reads the lines where they stand, so that a list of thousands costs
// no more than the lines on the screen.
#pragma once

#include "frontends/qt/View.h"
#include "widgets/ListBox.h"

#include <QAbstractListModel>
#include <QListView>

#include <cstdint>
#include <memory>
#include <span>

namespace vorandine::qt {

class LineModel : public QAbstractListModel {
  public:
    LineModel(const widgets::ListBox& list, QObject* parent)
        : QAbstractListModel(parent), list_(list) {}
    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    void reread();

  private:
    const widgets::ListBox& list_;
};

class ListWidget : public QListView {
  public:
    explicit ListWidget(QWidget* parent);
    [[nodiscard]] int linesInPage() const;

  protected:
    // A line too long for the view shows whole in a tool tip.
    bool viewportEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
};

class ListView : public View {
  public:
    ListView(widgets::ListBox& list, QWidget& parent);
    [[nodiscard]] ListWidget& list() const noexcept { return native_; }

    [[nodiscard]] std::vector<QWidget*> sources() const override;
    void layOut(const Scale& scale) override;
    void sync() override;

    // The two scroll together from here on, without bars of their own.
    void scrollWith(ListView& other);

  private:
    widgets::ListBox& list_;
    ListWidget& native_;
    LineModel* lines_;
    Scale scale_; // the delegate of the lines refers to it
    std::uint64_t revision_ = 0;
    int current_ = -1;
    std::vector<bool> selected_; // where several lines can be selected

    [[nodiscard]] widgets::Place seenPlace() const;
    void reread();
    void syncSelection(bool reread);
};

// The view of a list box; null if the view shows another kind of control.
[[nodiscard]] ListView* listIn(View& view);

// Lists of equal top and height of which one runs on under the next are the columns of one table.
[[nodiscard]] bool runsUnder(const widgets::Control& list, const widgets::Control& next);
void linkTables(std::span<const std::unique_ptr<View>> views);

} // namespace vorandine::qt
