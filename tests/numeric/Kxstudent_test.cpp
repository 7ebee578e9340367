#include <kxgraph/numeric/Kxstudent.h>

#include "support/testing.h"

#include <numbers>

namespace kx::test::student {

TEST(Student, HasTheLimitsOfTablesAndOfClosedForms) {
    for (const auto& [level, freedom, limit] : Cases<double, double, double>("numbers", "student limits"))
        EXPECT_NEAR(StudentLimit(level, freedom) / limit, 1, 5e-13) << level << " of " << freedom;
    const double z = StudentLimit(.95, 1e300); // and what 1 / freedom adds to the normal distribution
    for (const double freedom : {1.9999e5, 2.0001e5, 1e6}) {
        const double f = freedom, first = (z * z * z + z) / (4 * f),
                     second = (5 * std::pow(z, 5) + 16 * std::pow(z, 3) + 3 * z) / (96 * f * f);
        EXPECT_NEAR(StudentLimit(.95, f), z + first + second, 1e-11) << freedom;
    }
    for (const double level : {1e-3, .3, .95, .999999, 1 - 1e-12}) {
        const double one = 1 / std::tan(std::numbers::pi / 2 * (1 - level));
        const double two = level * std::sqrt(2 / ((1 - level) * (1 + level)));
        EXPECT_NEAR(StudentLimit(level, 1) / one, 1, 1e-12) << level;
        EXPECT_NEAR(StudentLimit(level, 2) / two, 1, 1e-12) << level;
        for (const double freedom : {.3, 2.5, 59.9, 121.0, 4e5, 1e7})
            EXPECT_NEAR(StudentExcess(StudentLimit(level, freedom), freedom) / (1 - level), 1, 1e-11);
    }
    for (const double none :
         {StudentLimit(1, 3), StudentLimit(-.1, 3), StudentLimit(.5, 0), StudentExcess(-1, 3)})
        EXPECT_TRUE(std::isnan(none));
}

} // namespace kx::test::student
