// Boxes, modal windows and menus. Whatever waits for the person first shows how things stand.
#include "frontends/qt/QtWorld.h"

#include "frontends/qt/FormWindow.h"
#include "frontends/qt/HelpWindow.h"

#include <QApplication>
#include <QCursor>
#include <QDate>
#include <QEventLoop>
#include <QFontInfo>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

#include <algorithm>

namespace vorandine::qt {
namespace {

using widgets::Answer;
using widgets::Buttons;
using widgets::Icon;

constexpr const char* AnswerProperty = "answer";
constexpr const char* NameProperty = "entryName";

QString text(const std::string& content) {
    return QString::fromStdString(content).replace("\r\n", "\n");
}

QMessageBox::Icon icon(Icon icon) {
    switch (icon) {
    case Icon::Information:
        return QMessageBox::Information;
    case Icon::Question:
        return QMessageBox::Question;
    case Icon::Warning:
        return QMessageBox::Warning;
    default:
        return QMessageBox::NoIcon;
    }
}

QString caption(Answer answer) {
    switch (answer) {
    case Answer::Yes:
        return QStringLiteral("&Oui");
    case Answer::No:
        return QStringLiteral("&Non");
    case Answer::Cancel:
        return QStringLiteral("&Annuler");
    default:
        return QStringLiteral("OK");
    }
}

std::vector<Answer> answers(Buttons buttons) {
    switch (buttons) {
    case Buttons::YesNo:
        return {Answer::Yes, Answer::No};
    case Buttons::YesNoCancel:
        return {Answer::Yes, Answer::No, Answer::Cancel};
    default:
        return {Answer::OK};
    }
}

// The buttons' own role: with the roles of answers, Escape would press No where there is no Cancel.
void addButtons(QMessageBox& box, Buttons buttons, Answer preset) {
    for (const Answer answer : answers(buttons)) {
        QPushButton* const button = box.addButton(caption(answer), QMessageBox::ActionRole);
        button->setProperty(AnswerProperty, static_cast<int>(answer));
        if (answer == Answer::OK || answer == Answer::Cancel)
            box.setEscapeButton(button);
        if (answer == preset)
            box.setDefaultButton(button);
    }
}

} // namespace

QAbstractButton* buttonFor(const QMessageBox& box, Answer answer) {
    for (QAbstractButton* const button : box.buttons())
        if (button->property(AnswerProperty) == static_cast<int>(answer))
            return button;
    return nullptr;
}

QAction* actionFor(const QMenu& popup, const widgets::Menu& entry) {
    for (QAction* const action : popup.actions())
        if (action->property(NameProperty) == QString::fromStdString(entry.Name()))
            return action;
    return nullptr;
}

QtWorld::QtWorld(std::function<widgets::Date()> today) : today_(std::move(today)) {}

QtWorld::~QtWorld() {
    delete menu_;
}

void QtWorld::enter(FormWindow& window) {
    windows_.push_back(&window);
}

void QtWorld::leave(FormWindow& window) {
    for (auto* const list : {&windows_, &modal_, &working_})
        list->erase(std::remove(list->begin(), list->end(), &window), list->end());
}

FormWindow* QtWorld::front() const {
    if (!modal_.empty())
        return modal_.back();
    if (!working_.empty())
        return working_.back();
    const auto active =
        std::find_if(windows_.begin(), windows_.end(),
                     [](const FormWindow* window) { return window->isActiveWindow(); });
    if (active != windows_.end())
        return *active;
    return windows_.empty() ? nullptr : windows_.back();
}

void QtWorld::syncAll() {
    for (FormWindow* const window : windows_)
        window->sync();
}

void QtWorld::activateFront() {
    if (FormWindow* const window = front(); window != nullptr && window->isVisible())
        window->activateWindow();
}

Answer QtWorld::messageBox(const widgets::Message& message) {
    syncAll();
    QMessageBox box(front());
    if (const FormWindow* const window = front())
        box.setFont(window->enlarged(box.font()));
    box.setWindowTitle(text(message.title));
    box.setTextFormat(Qt::PlainText);
    box.setText(text(message.text));
    box.setInformativeText(text(message.detail));
    box.setIcon(icon(message.icon));
    addButtons(box, message.buttons, message.preset.value_or(answers(message.buttons).front()));
    if (hooks_.boxShown)
        QTimer::singleShot(0, &box, [&] { hooks_.boxShown(message, box); });
    box.exec();
    activateFront();
    const QAbstractButton* const pressed = box.clickedButton();
    return pressed != nullptr ? static_cast<Answer>(pressed->property(AnswerProperty).toInt())
                              : answers(message.buttons).back();
}

void QtWorld::runModal(widgets::Form& form) {
    if (form.focus() == nullptr)
        form.focusFirst();
    syncAll();
    {
        FormWindow window(form, *this, front());
        modal_.push_back(&window);
        // Event loops end in the order of their windows: a person works in the one in front alone.
        // Without one there may be several persons, each in a world of its own.
        window.setWindowModality(hooks_.modalShown ? Qt::WindowModal : Qt::ApplicationModal);
        window.show();
        window.activateWindow();
        if (hooks_.modalShown) {
            hooks_.modalShown(form, window);
        } else if (!form.unloaded()) {
            QEventLoop loop;
            QObject::connect(&window, &FormWindow::unloaded, &loop, &QEventLoop::quit);
            loop.exec();
        }
    }
    activateFront();
}

void QtWorld::popupMenu(widgets::Menu& menu) {
    FormWindow* const window = front();
    delete menu_;
    if (window == nullptr)
        return;
    menu_ = new QMenu(window);
    menu_->setFont(window->enlarged(menu_->font()));
    for (widgets::Menu* const entry : menu.entries()) {
        if (!entry->Visible())
            continue;
        QAction* const action = menu_->addAction(text(entry->Caption()).replace('&', "&&"));
        action->setProperty(NameProperty, QString::fromStdString(entry->Name()));
        QObject::connect(action, &QAction::triggered, window, [window, entry] {
            window->gesture([&] { return widgets::pick(window->form(), *entry); });
        });
    }
    menu_->popup(menuPlace_.value_or(QCursor::pos()));
    if (hooks_.menuShown)
        hooks_.menuShown(menu, *menu_);
}

void QtWorld::putAside() {
    menuAside_ = menu_ != nullptr && menu_->isVisible();
    if (menuAside_)
        menu_->hide();
}

void QtWorld::takeUp() {
    activateFront();
    if (menu_ != nullptr && menuAside_)
        menu_->popup(menu_->pos());
    QCoreApplication::processEvents();
}

void QtWorld::tell(widgets::Form& form, const widgets::Told& told) {
    if (teller_)
        teller_(form, told);
}

void QtWorld::showHelp(const widgets::HelpPage& help) {
    if (help_ == nullptr) {
        const QFont font = QApplication::font();
        const FormWindow* const window = front();
        const QFont read = window != nullptr ? window->enlarged(font) : font;
        help_ = std::make_unique<HelpWindow>(static_cast<double>(QFontInfo(read).pixelSize()) /
                                             QFontInfo(font).pixelSize());
    }
    help_->open(help);
    if (hooks_.helpShown)
        hooks_.helpShown(help);
}

widgets::Date QtWorld::today() {
    if (today_)
        return today_();
    const QDate date = QDate::currentDate();
    return {date.year(), date.month(), date.day()};
}

void QtWorld::letEventsThrough() {
    syncAll();
    QCoreApplication::processEvents();
}

} // namespace vorandine::qt
