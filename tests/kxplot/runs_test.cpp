// Runs of the program as the file beside this one writes them down.

#include "kxplot/program.h"

namespace kxplot::test::runs {

class Runs : public Program {
protected:
    /// Compares a run with what is expected, "K fact | K fact | ...".
    void Check(const std::string& Arguments, const std::string& Facts) {
        SCOPED_TRACE(Arguments);
        for (const char* name : {"p.svg", "r.ini", "s.ini"}) fs::remove(Path(name));
        const char* const more = Facts.starts_with('=')   ? " --results r.ini"
                                 : Facts.starts_with(':') ? " --save-outfit s.ini"
                                                          : "";
        TNames words = Words("d.csv -o p.svg " + Arguments + more);
        for (auto& word : words) std::replace(word.begin(), word.end(), '~', ' ');
        const TOutcome outcome = Run(words);
        FSvg = Has("p.svg") ? Read("p.svg") : "";
        int status = 0;
        std::string errors;
        for (std::size_t at = 0; at < Facts.size();) {
            const auto end = std::min(Facts.find(" | ", at), Facts.size());
            const std::string fact = Facts.substr(at + 2, end - at - 2);
            if (Facts[at] == '!') {
                status = fact[0] - '0';
                errors += "kxplot: " + fact.substr(2) + "\n";
            } else {
                CheckFact(Facts[at], fact);
            }
            at = end + 3;
        }
        EXPECT_EQ(outcome.Status, status);
        EXPECT_TRUE(std::regex_match(outcome.Errors, std::regex(errors))) << outcome.Errors;
        EXPECT_EQ(FSvg.empty(), status == 2);
    }

private:
    void CheckFact(char Kind, const std::string& What) const {
        if (Kind == '=') return CheckValue("r.ini", Words(What));
        if (Kind == ':') return CheckValue("s.ini", Words("Graph1." + What));
        if (Kind == '^') {
            const auto text = What.find(' ', What.find(' ') + 1);
            EXPECT_EQ(PlaceOf(What.substr(text + 1)), What.substr(0, text));
            return;
        }
        const std::string piece = Kind == '*' ? What : ">" + What + "</text>";
        EXPECT_EQ(FSvg.find(piece) != std::string::npos, Kind != '-') << What;
    }
    /// Section, key and value; curves, which have extrema, are sampled a point a pixel.
    void CheckValue(const char* FileName, const TNames& Expected) const {
        const std::string found = Value(Read(FileName), Expected[0], Expected[1]);
        const double tolerance = Expected[1].find('-') == std::string::npos ? 1e-6 : 0.1;
        if (Expected[2].find_first_not_of("-.0123456789") != std::string::npos)
            EXPECT_EQ(found, Expected[2] == "nothing" ? "" : Expected[2]) << Expected[1];
        else
            EXPECT_NEAR(found.empty() ? NAN : std::stod(found), std::stod(Expected[2]), tolerance);
    }
    /// Where a text stands in the picture: "left top" and so on; empty when it is not there.
    std::string PlaceOf(const std::string& Text) const {
        std::smatch found;
        const std::regex element("<text x=\"([0-9]+)[^\"]*\" y=\"([0-9]+)\"[^>]*>" + Text + "</text>");
        if (!std::regex_search(FSvg, found, element)) return {};
        return std::string(std::stoi(found[1]) < 450 ? "left " : "right ") +
               (std::stoi(found[2]) < 300 ? "top" : "bottom");
    }

    std::string FSvg;
};

TEST_F(Runs, ShowFindAndSayWhatTheFileSays) {
    std::istringstream file(kx::ReadFile(KX_SOURCE "/tests/kxplot/runs.txt"));
    int count = 0;
    for (std::string line; std::getline(file, line);) {
        if (line.empty() || line[0] == '#') continue;
        if (line.starts_with("@ <")) {
            Write("d.csv", kx::ReadFile(KX_SOURCE "/" + line.substr(4)));
            continue;
        }
        if (line[0] == '@') {
            std::replace(line.begin(), line.end(), '|', '\n');
            Write("d.csv", line.substr(2) + "\n");
            continue;
        }
        const auto arrow = std::min(line.find("=>"), line.size());
        Check(line.substr(0, arrow), line.substr(std::min(arrow + 3, line.size())));
        ++count;
    }
    EXPECT_GT(count, 80);
}

} // namespace kxplot::test::runs
