#include <kxgraph/platform/text/suggest.h>

#include "support/testing.h"

namespace {

using namespace kx;

TEST(Suggest, FindsWhatATypistMeantAndNothingFarOff) {
    constexpr std::array<std::string_view, 5> known{"--style", "--stack", "temperature", "u", "Width"};
    for (const auto& [text, meant] : test::Cases<std::string, std::string>("texts", "meant"))
        EXPECT_EQ(Closest(text, known), meant) << text;
    EXPECT_EQ(DidYouMean("Witdh", known), "; did you mean 'Width'?");
    EXPECT_EQ(SlipsBetween("kitten", "sitting"), 3);
    EXPECT_EQ(SlipsBetween("ca", "ABC"), 3); // no character is exchanged and then parted from its neighbour
}

} // namespace
