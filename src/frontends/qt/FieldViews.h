// Text boxes and combo boxes. The native edit only shows: the text, the caret and the selection are
// the control's, and typing never reaches the edit.
#pragma once

#include "frontends/qt/View.h"
#include "widgets/TextField.h"

#include <QAbstractListModel>
#include <QComboBox>
#include <QLineEdit>

#include <cstdint>

class QInputMethodEvent;

namespace vorandine::qt {

class FieldEdit : public QLineEdit {
    Q_OBJECT

  public:
    explicit FieldEdit(QWidget* parent);

    // Shows text, caret and selection; a field without the focus shows its beginning.
    void mirror(const widgets::TextField& field);
    // The caret and the selection that the native edit has, in characters.
    [[nodiscard]] std::size_t nativeCaret() const;
    [[nodiscard]] std::size_t nativeAnchor() const;
    // A character that is still being composed; nothing is committed.
    void compose(const QInputMethodEvent& event);

  signals:
    void caretMoved(); // by the mouse

  protected:
    // A text too long for the field shows whole in a tool tip.
    bool event(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    bool active_ = false; // the field has its form's focus

    [[nodiscard]] bool tooLong() const;
};

class TextBoxView : public View {
  public:
    TextBoxView(widgets::TextBox& box, QWidget& parent);
    void sync() override;

  private:
    widgets::TextBox& box_;
    FieldEdit& native_;
};

// Reads a combo box's entries where they stand.
class EntryModel : public QAbstractListModel {
  public:
    EntryModel(const widgets::ComboBox& combo, QObject* parent)
        : QAbstractListModel(parent), combo_(combo) {}
    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    void reread();

  private:
    const widgets::ComboBox& combo_;
};

// Opens wide enough for its longest entry.
class ComboWidget : public QComboBox {
  public:
    using QComboBox::QComboBox;
    void showPopup() override;
};

class ComboView : public View {
  public:
    ComboView(widgets::ComboBox& combo, QWidget& parent);
    [[nodiscard]] std::vector<QWidget*> sources() const override;
    void layOut(const Scale& scale) override;
    void sync() override;

  private:
    widgets::ComboBox& combo_;
    ComboWidget& native_;
    EntryModel* entries_;
    FieldEdit* edit_ = nullptr; // none where only entries can be picked
    std::uint64_t revision_ = 0;
    std::string text_;
};

} // namespace vorandine::qt
