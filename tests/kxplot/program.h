#pragma once
// Runs the program itself, as a shell would, in a directory of its own.

#include "kxplot/arguments.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <regex>

namespace kxplot::test {

namespace fs = std::filesystem;

struct TOutcome {
    int Status = -1;
    std::string Output, Errors;
};

class Program : public testing::Test {
protected:
    void SetUp() override { Write("d.csv", "t,u,v,e\n1,2,3,0.1\n2,4,5,0.2\n3,3,nan,0.1\n"); }

    void Write(const std::string& Name, const std::string& Text) const {
        kx::ReplaceFile(FDirectory / Name, Text);
    }
    std::string Read(const std::string& Name) const { return kx::ReadFile(FDirectory / Name); }
    bool Has(const std::string& Name) const { return kx::FileExists(FDirectory / Name); }
    std::string Path(const std::string& Name) const { return FDirectory / Name; }
    /// The files of the directory but d.csv, hidden ones too.
    TNames Files() const {
        TNames names;
        for (const auto& entry : fs::directory_iterator(FDirectory / ""))
            if (entry.path().filename() != "d.csv") names.push_back(entry.path().filename().string());
        std::sort(names.begin(), names.end());
        return names;
    }

    TOutcome Run(const TNames& Arguments, const std::string& Input = "") const {
        const kx::test::TTemporaryDirectory streams;
        kx::ReplaceFile(streams / "in", Input);
        const pid_t child = Start(Arguments, streams / "in", streams / "out", streams / "err");
        const int status = StatusOf(child);
        return {status, kx::ReadFile(streams / "out"), kx::ReadFile(streams / "err")};
    }
    /// The program at work, with its streams in files.
    pid_t Start(const TNames& Arguments, const std::string& In, const std::string& Out,
                const std::string& Err) const {
        const pid_t child = fork();
        if (child == 0) RunChild(Arguments, In, Out, Err);
        return child;
    }
    /// Waits for its end; -1 when a signal ended it.
    static int StatusOf(pid_t Child) {
        int status = 0;
        waitpid(Child, &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    /// The picture of d.csv as SVG; a failure shows what the program said. Arguments are words, More may hold
    /// blanks.
    std::string Svg(const std::string& Arguments, const TNames& More = {}) const {
        TNames all = Words("d.csv -o p.svg " + Arguments);
        all.insert(all.end(), More.begin(), More.end());
        const TOutcome outcome = Run(all);
        EXPECT_EQ(outcome.Status, 0) << Arguments << outcome.Errors;
        return outcome.Status == 0 ? Read("p.svg") : "";
    }

    /// One line about what is wrong; Arguments are words.
    void ExpectError(int Status, const std::string& Arguments, const std::string& Message,
                     const std::string& Input = "") const {
        SCOPED_TRACE(Arguments);
        const TOutcome outcome = Run(Words(Arguments), Input);
        EXPECT_EQ(outcome.Status, Status);
        EXPECT_TRUE(std::regex_match(outcome.Errors, std::regex("kxplot: " + Message + "\n")))
            << outcome.Errors;
    }

    /// What fits of d.csv find. Those with few iterations may say that they are not through.
    std::string Results(const std::string& Arguments) const {
        const TOutcome outcome = Run(Words("d.csv --results - " + Arguments));
        EXPECT_TRUE(std::regex_match(outcome.Errors, std::regex("(kxplot: .* has not converged: .*\n)*")))
            << Arguments << ": " << outcome.Errors;
        return outcome.Output;
    }
    /// A value in INI text; empty when it is not there.
    static std::string Value(const std::string& Ini, const std::string& Section, const std::string& Key) {
        const auto begin = ("\n" + Ini).find("\n[" + Section + "]\n");
        if (begin == std::string::npos) return {};
        const std::string body = Ini.substr(begin, Ini.find("\n\n", begin) - begin);
        const auto at = body.find("\n" + Key + "=");
        if (at == std::string::npos) return {};
        const auto from = at + Key.size() + 2;
        return body.substr(from, body.find('\n', from) - from);
    }
    double Result(const std::string& Arguments, const std::string& Section, const std::string& Key) const {
        const std::string value = Value(Results(Arguments), Section, Key);
        return value.empty() ? NAN : std::stod(value);
    }

private:
    [[noreturn]] void RunChild(TNames Arguments, const std::string& In, const std::string& Out,
                               const std::string& Err) const {
        const auto open = [&](const std::string& Name, int Flags, int Target) {
            dup2(::open(Name.c_str(), Flags | O_CREAT | O_NOCTTY, 0600), Target);
        };
        open(In, O_RDONLY, 0);
        open(Out, O_WRONLY, 1);
        open(Err, O_WRONLY, 2);
        if (chdir((FDirectory / "").c_str()) != 0) _exit(126);
        setenv("LC_ALL", "de_DE.UTF-8", 1); // its decimal comma must show nowhere
        std::signal(SIGINT, SIG_DFL);       // also where the tests themselves ignore it
        Arguments.insert(Arguments.begin(), KXPLOT);
        std::vector<char*> pointers;
        for (auto& argument : Arguments) pointers.push_back(argument.data());
        pointers.push_back(nullptr);
        execv(KXPLOT, pointers.data());
        _exit(127);
    }

    kx::test::TTemporaryDirectory FDirectory;
};

} // namespace kxplot::test
