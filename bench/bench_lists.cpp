// A file with 5,000 trainings in its window against a plain five-column list that shows the same
// lines: opening, scrolling a page, selecting a line, each until it is painted. Both stand in one
// process and take turns; what is painted goes to memory (offscreen platform, unless another one is
// chosen). Fails beyond the limits printed.
#include "components/DateConverter.h"
#include "components/Help.h"
#include "frontends/qt/FormWindow.h"
#include "frontends/qt/QtWorld.h"
#include "measure.h"
#include "records/DBARecord.h"
#include "rules/Numbers.h"
#include "text/Decimal.h"
#include "unit/control_support.h"

#include <QAbstractTableModel>
#include <QApplication>
#include <QHeaderView>
#include <QListView>
#include <QScrollBar>
#include <QTest>
#include <QTreeView>
#include <QVBoxLayout>

#include <array>
#include <cstdlib>
#include <map>
#include <memory>
#include <stdexcept>

namespace {

using namespace vorandine;

constexpr int Trainings = 5000;
constexpr int Rounds = 21;
constexpr int Gestures = 40; // a timed repetition, in opened windows
constexpr double MostAllowed = 2.0;
constexpr double NoLimit = 0;
constexpr const char* Code = "05000";
constexpr int FewTrainings = 50;
constexpr const char* FewCode = "00050";
constexpr std::size_t Columns = 5;

using Line = std::array<QString, Columns>;

// What both open from: a store with the file in it.
struct Office {
    control_test::Desk desk;
    qt::QtWorld world{[] { return widgets::Date{2006, 6, 15}; }};
    components::DateConverter dates{[this] { return world.today(); }};
    components::Help help{world};
    std::shared_ptr<store::Store> store = std::make_shared<store::Store>(desk.engine);
    std::shared_ptr<components::Rights> rights = std::make_shared<components::Rights>(
        [](const std::string& /*key*/) { return components::ModuleRights{}; });

    Office() {
        desk.put("FORMVORANDINE", Code, control_test::caregiver(Trainings));
        desk.put("FORMVORANDINE", FewCode, control_test::caregiver(FewTrainings));
    }

    // The lines as the file's window shows them, read by someone who needs nothing else of it.
    std::vector<Line> lines(const std::string& code) {
        const records::DBARecord labels = store->OpenFile("TABLES")->ReadRecord("FORMPRO");
        std::map<std::string, std::string> labelOf;
        for (int i = 1; i <= labels.DCount(2); ++i)
            labelOf[labels(2, i)] = labels(3, i);
        const records::DBARecord file = store->OpenFile("FORMVORANDINE")->ReadRecord(code);
        std::vector<Line> lines;
        const int count = file.DCount(6);
        lines.reserve(static_cast<std::size_t>(count));
        for (int i = 1; i <= count; ++i) {
            const auto hours = text::Decimal::require(std::string(file(7, i))).shifted(-2).toText();
            lines.push_back({shown(dates.Date_Affichee(file(5, i))), shown(labelOf[file(6, i)]),
                             shown(rules::Format_Numerique(hours, 4, 2, false)), shown(file(8, i)),
                             std::string(file(14, i)) == "1" ? "OUI" : "NON"});
        }
        return lines;
    }

  private:
    static QString shown(const std::string& text) { return QString::fromStdString(text); }
};

class LinesModel : public QAbstractTableModel {
  public:
    explicit LinesModel(std::vector<Line> lines) : lines_(std::move(lines)) {}
    int rowCount(const QModelIndex& parent) const override {
        return parent.isValid() ? 0 : static_cast<int>(lines_.size());
    }
    int columnCount(const QModelIndex& parent) const override {
        return parent.isValid() ? 0 : static_cast<int>(Columns);
    }
    QVariant data(const QModelIndex& index, int role) const override {
        return role == Qt::DisplayRole ? lines_[static_cast<std::size_t>(index.row())]
                                               [static_cast<std::size_t>(index.column())]
                                       : QVariant();
    }

  private:
    std::vector<Line> lines_;
};

// Lets the window do what it has put off, and paint what is no longer right, now rather than at the
// next frame.
void paint(QWidget& window) {
    QCoreApplication::processEvents();
    QEvent request(QEvent::UpdateRequest);
    QCoreApplication::sendEvent(&window, &request);
}

// Time taken by a gesture that did not arrive says nothing.
void require(bool arrived) {
    if (!arrived)
        throw std::runtime_error("a gesture had no effect");
}

// A window that shows the lines, whichever way.
class Shown {
  public:
    virtual ~Shown() = default;
    virtual QWidget& window() = 0;
    // The list that the mouse and the keys go to.
    virtual QAbstractItemView& list() = 0;

    void show() {
        window().show();
        window().activateWindow();
        paint(window());
    }
    void key(Qt::Key key) {
        QTest::keyClick(window().windowHandle(), key);
        paint(window());
    }
    void press(int lineOnScreen) {
        const QRect line = list().visualRect(list().indexAt({5, 5}));
        const QPoint at = line.center() + QPoint(0, lineOnScreen * line.height());
        QTest::mouseClick(window().windowHandle(), Qt::LeftButton, {},
                          list().viewport()->mapTo(&window(), QPoint(5, at.y())));
        paint(window());
    }
};

class Ours : public Shown {
  public:
    Ours(Office& office, const std::string& code)
        : form_({office.world, office.dates, office.help, std::make_shared<ports::DBAClient>(),
                 office.store, office.rights},
                code, "DURAND Marie", [](const Error& error) { throw error; }),
          window_(form_.form(), office.world) {
        show();
    }
    QWidget& window() override { return window_; }
    QAbstractItemView& list() override {
        auto& box = control_test::at<widgets::ListBox>(form_, "Lst_ObsFormAidant");
        return *qobject_cast<QAbstractItemView*>(window_.widgetFor(box));
    }

  private:
    host::CaregiverForm form_;
    qt::FormWindow window_;
};

class Plain : public Shown {
  public:
    Plain(std::vector<Line> lines, const QSize& size, const QFont& font)
        : model_(std::move(lines)) {
        view_.setFont(font);
        view_.setModel(&model_);
        view_.setUniformRowHeights(true);
        view_.setRootIsDecorated(false);
        view_.resize(size);
        show();
    }
    QWidget& window() override { return view_; }
    QAbstractItemView& list() override { return view_; }

  private:
    LinesModel model_;
    QTreeView view_;
};

// The two by turns, each closed again out of the time taken.
bench::Comparison openings(const std::function<std::unique_ptr<Shown>()>& ours,
                           const std::function<std::unique_ptr<Shown>()>& theirs) {
    std::unique_ptr<Shown> opened;
    std::array<std::vector<double>, 2> times;
    std::vector<double> ratios;
    for (int round = -1; round < Rounds; ++round) {
        std::array<double, 2> once{};
        for (const std::size_t turn : {0U, 1U}) {
            const std::size_t who = round % 2 == 0 ? turn : 1 - turn;
            once.at(who) = bench::timed([&] { opened = who == 0 ? ours() : theirs(); },
                                        bench::Clock::Processor);
            opened.reset();
        }
        if (round < 0) // warms up
            continue;
        times[0].push_back(once[0]);
        times[1].push_back(once[1]);
        ratios.push_back(once[0] / once[1]);
    }
    return {bench::median(times[0]), bench::median(times[1]), bench::median(ratios)};
}

// A page down again and again, from the first line.
void scrollPages(Shown& shown) {
    shown.press(0);
    shown.key(Qt::Key_Home);
    for (int i = 0; i < Gestures; ++i)
        shown.key(Qt::Key_PageDown);
    require(shown.list().currentIndex().row() > Gestures &&
            shown.list().verticalScrollBar()->value() > Gestures);
}

void selectLines(Shown& shown) {
    for (int i = 0; i < Gestures; ++i) {
        const int before = shown.list().currentIndex().row();
        shown.press(2 + i % 5);
        require(shown.list().currentIndex().row() != before);
    }
}

bool holds(const std::string& what, const bench::Comparison& result, double repetitions,
           double limit) {
    bench::report(what, result, repetitions, limit);
    return limit == NoLimit || result.ratio <= limit;
}

} // namespace

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    Office office;

    // The plain list has the place and the font of the five lists.
    Ours ours(office, Code);
    const QFont font = ours.list().font();
    const QSize size(ours.window().width() * 9 / 10, ours.list().height());
    const auto lines = office.lines(Code);
    Plain plain(lines, size, font);
    std::printf("%d trainings, window %d x %d, %d lines on the screen, platform %s\n", Trainings,
                ours.window().width(), ours.window().height(),
                ours.list().viewport()->height() / ours.list().fontMetrics().height(),
                qPrintable(QApplication::platformName()));
    std::printf("%-48s %13s %13s\n", "", "file window", "plain list");

    const auto opened = [&](const char* code) {
        return openings(
            [&, code] { return std::make_unique<Ours>(office, code); },
            [&, code] { return std::make_unique<Plain>(office.lines(code), size, font); });
    };
    bool held = holds("opening, from the record to the picture", opened(Code), 1, MostAllowed);
    holds("  the same with 50 trainings", opened(FewCode), 1, NoLimit);
    const auto gesture = [&](const char* what, void (*work)(Shown&)) {
        const auto onOurs = [&] { work(ours); };
        const auto onPlain = [&] { work(plain); };
        const auto result = bench::compare(Rounds, onOurs, onPlain, bench::Clock::Processor);
        held = holds(what, result, Gestures, MostAllowed) && held;
    };
    gesture("scrolling a page", scrollPages);
    gesture("selecting a line", selectLines);
    return held ? EXIT_SUCCESS : EXIT_FAILURE;
}
