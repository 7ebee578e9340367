// Small tables, one oddity each, as the list beside them says that they are read.

#include <kxgraph/platform/text/files.h>

#include "support/testing.h"

#include <kxgraph/table/Kxtable.h>

namespace kx::test::tables {

constexpr const char* CFolder = KX_SOURCE "/tests/table/tables/";

/// "skip=2" and the like.
void Take(TKxTableFormat& Format, const std::string& Word) {
    const auto equals = Word.find('=');
    const std::string name = Word.substr(0, equals),
                      value = equals == Word.npos ? "" : Word.substr(equals + 1);
    if (name == "header") Format.Header = TKxHeaderRow::Present;
    if (name == "no-header") Format.Header = TKxHeaderRow::Absent;
    if (name == "skip") Format.Skip = std::stoi(value);
    if (name == "block") Format.Block = std::stoi(value);
    if (name == "dmy") Format.DateOrder = TKxDateOrder::DayMonthYear;
    if (name == "mdy") Format.DateOrder = TKxDateOrder::MonthDayYear;
    if (name == "ymd") Format.DateOrder = TKxDateOrder::YearMonthDay;
    if (name == "decimal") Format.DecimalSign = value[0];
    if (name == "missing") Format.Missing.push_back(value);
}

std::string Joined(const std::vector<std::string>& Texts) {
    std::string joined;
    for (const auto& text : Texts) joined += (&text == &Texts[0] ? "" : "; ") + text;
    return joined;
}

/// How a table is read: kinds [header] {units} rows: first row .. last row.
std::string Reading(const TKxTable& Table) {
    std::string kinds;
    std::vector<std::string> headers, units, first, last;
    std::size_t rows = 0;
    for (int i = 0; i < Table.GetColumnCount(); ++i) {
        const TKxColumnKind kind = Table.GetKind(i);
        kinds += "ENDT"[int(kind)];
        headers.push_back(Table.GetHeader(i));
        units.push_back(Table.GetUnit(i));
        if (kind == TKxColumnKind::Texts) {
            const auto texts = Table.ReadTexts(i);
            rows = texts.size();
            first.push_back(texts.front());
            last.push_back(texts.back());
        } else {
            const auto values = Table.ReadColumns({i}).front();
            rows = values.size();
            first.push_back(FloatToStr(values.front()));
            last.push_back(FloatToStr(values.back()));
        }
    }
    std::string text = kinds;
    if (Table.HasHeader()) text += " [" + Joined(headers) + "]";
    if (!Table.GetShape().Units.empty()) text += " {" + Joined(units) + "}";
    return text.append(" ").append(std::to_string(rows)) + ": " + Joined(first) + " .. " + Joined(last);
}

std::string Refusal(const ETableError& Error) {
    static constexpr const char* remedies[] = {"none",    "skip",    "block",          "date order",
                                               "decimal", "missing", "skip or missing"};
    return std::string("! ") + Error.what() + " (" + remedies[int(Error.GetRemedy())] + ")";
}

TEST(Tables, AreReadAsAPersonWould) {
    std::istringstream list(ReadFile(std::string(CFolder) + "list.txt"));
    std::size_t cases = 0;
    std::set<std::string> names;
    for (std::string line; std::getline(list, line);) {
        if (line.empty() || line[0] == '#') continue;
        SCOPED_TRACE(line);
        const auto arrow = line.find(" => ");
        ASSERT_NE(arrow, line.npos);
        std::istringstream words(line.substr(0, arrow));
        std::string name, word, found;
        words >> name;
        TKxTableFormat format;
        format.PartBlocks = true;
        while (words >> word) Take(format, word);
        const std::string text = ReadFile(CFolder + name);
        try {
            found = Reading(TKxTable(text, name, format));
        } catch (const ETableError& error) {
            found = Refusal(error);
        }
        EXPECT_EQ(found, line.substr(arrow + 4));
        names.insert(name);
        ++cases;
    }
    EXPECT_GT(cases, 80u);
    for (const auto& file : std::filesystem::directory_iterator(CFolder))
        EXPECT_TRUE(file.path().filename() == "list.txt" || names.count(file.path().filename())) << file;
}

} // namespace kx::test::tables
