#pragma once
// What tests ask of results.

#include "kxplot/program.h"

#include <cmath>

namespace kxplot::test {

class KxplotAnalyses : public KxplotProgram {
protected:
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
    std::string Results(const std::string& Arguments) const {
        const TOutcome outcome = Run(Words("d.csv --results - " + Arguments));
        // Fits with few iterations may say that they are not through.
        EXPECT_TRUE(std::regex_match(outcome.Errors, std::regex("(kxplot: .* has not converged: .*\n)*")))
            << Arguments << ": " << outcome.Errors;
        return outcome.Output;
    }
    double Result(const std::string& Arguments, const std::string& Section, const std::string& Key) const {
        const std::string value = Value(Results(Arguments), Section, Key);
        return value.empty() ? NAN : std::stod(value);
    }
};

} // namespace kxplot::test
