// The line type scale factor of ss: the reference's X scale, the LTSCALE and annotation scale of
// its drawing, and the annotation scale of the host drawing.
#include <gtest/gtest.h>

#include "_Utility/SedaReference.h"

TEST(ModifikatorMeritka, CountsBothDrawingsScales)
{
    // X scale 2 of a file with LTSCALE 10 in a drawing of 1:50.
    EXPECT_DOUBLE_EQ(ModifikatorMeritka(2.0, 10.0, false, 0.01, 0.02), 0.4);
    // MSLTSCALE on in the file at 1:100 divides by its scale.
    EXPECT_DOUBLE_EQ(ModifikatorMeritka(2.0, 10.0, true, 0.01, 0.02), 40.0);
    // A scale that can't be had counts as none.
    EXPECT_DOUBLE_EQ(ModifikatorMeritka(2.0, 10.0, true, std::nullopt, std::nullopt), 20.0);
}
