// The fixed-column lines of the D.I.F. tab: every piece in its columns, counted in characters.
#include "dif/Columns.h"
#include "text/Characters.h"
#include "text/Error.h"

#include <gtest/gtest.h>

#include <vector>

namespace vorandine::dif {
namespace {

const std::string Blank10(10, ' ');
const std::string Label35 = "Gestes et postures à l'arrivée, été";

std::vector<std::string> cut(const std::string& line, const auto& columns) {
    std::vector<std::string> pieces;
    for (const Piece& piece : columns)
        pieces.push_back(text::Mid(line, piece.column, piece.width));
    return pieces;
}

TEST(SummaryLine, NamesAreCutOrPaddedByCharactersAndFiguresStandAtTheRight) {
    struct Case {
        SummaryLine line;
        std::size_t length;
        std::vector<std::string> pieces;
    };
    const std::string end = "31/12/2006";
    const std::vector<Case> cases = {
        {{Label35, end, "      20,00", "       7,50", "      12,50"},
         78,
         {Label35, end, "      20,00", "       7,50", "      12,50"}},
        {{Label35 + "s", "", "99999999,99", "       0,00", "       0,00"},
         78,
         {Label35, Blank10, "99999999,99", "       0,00", "       0,00"}},
        {{"Éléonore", "plus tard, en été", "", "", ""},
         45,
         {"Éléonore" + std::string(27, ' '), "plus tard,", "", "", ""}},
        // A blank short, as negative figures can be: only the last one stands so.
        {{"", end, "     -9,50", "     -9,50", "     -9,50"},
         77,
         {std::string(35, ' '), end, "      -9,50", "      -9,50", "     -9,50"}}};
    for (const Case& each : cases) {
        const std::string line = each.line.toText();
        EXPECT_EQ(text::Len(line), each.length) << line;
        EXPECT_EQ(cut(line, SummaryLine::Columns), each.pieces) << line;
    }
    EXPECT_EQ((SummaryLine{"A", "", "100000000,00", "       1,00", "       2,00"}.toText()),
              "A" + std::string(44, ' ') + "100000000,00       1,00       2,00")
        << "a figure is never cut";
}

TEST(DetailLine, PiecesComeBackFromTheirColumns) {
    const std::vector<DetailLine> lines = {{"10/01/2006", "20,00", "", "", "     20,00"},
                                           {"10/01/2006", "9999999,99", "", "", "9999999,99"},
                                           {"10/03/2006", "", Label35, "5,00", "-999999,99"},
                                           {"vers Noël", "beaucoup", "É", "à voir", "n/a"},
                                           {"", "-9,50", "", "-8,50", ""}};
    for (const DetailLine& line : lines) {
        const std::string text = line.toText();
        EXPECT_NO_THROW(DetailLine::requireInColumns(text)) << text;
        EXPECT_EQ(text::Left(text, 10), text::PadRight(line.date, 10));
        const DetailLine back = DetailLine::parse(text);
        EXPECT_EQ(back.date, text::PadRight(line.date, 10));
        EXPECT_EQ(back.rights, line.rights);
        EXPECT_EQ(back.label, text::PadRight(line.label, 35));
        EXPECT_EQ(back.hours, line.hours);
        EXPECT_EQ(back.balance, text::Trim(line.balance));
        EXPECT_EQ(DetailLine::withBalance(text, "      1,00"), text::Left(text, 69) + "      1,00");
        EXPECT_EQ(text::Len(DetailLine::withBalance(text, "")), 69U);
    }
    EXPECT_EQ(DetailLine::parse(DetailLine{"", "", Label35 + "s", "", ""}.toText()).label, Label35);
}

// Whatever is too wide moves what stands behind it, and may even put blanks where blanks belong.
TEST(DetailLine, ALineOutOfItsColumnsIsTold) {
    const std::vector<DetailLine> lines = {
        {"10/01/2006", "10000000,00", "", "", "      1,00"},
        {"10/01/2006", "1000000000000,00", Label35, "5,00", "      1,00"},
        {"10/01/2006", "", "Hygiène", "10000000,00", "      1,00"},
        {"10/01/2006", "20,00", "", "", "10000000,00"},
        {"12 janvier 2006", "20,00", "", "", "      1,00"},
        {"12 mars 20 06", "", "", "", "      1,00"},
        {"12 mars 20 06", "", "Hygiène", "5,00", "      1,00"}};
    for (const DetailLine& line : lines) {
        try {
            DetailLine::requireInColumns(line.toText());
            ADD_FAILURE() << line.toText();
        } catch (const Error& error) {
            EXPECT_EQ(error.number(), errors::FigureTooWide);
        }
    }
}

} // namespace
} // namespace vorandine::dif
