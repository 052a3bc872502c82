#include "Engine/core/String.h"

#include <gtest/gtest.h>

namespace Engine {

TEST(String, convertsBothWaysWithoutLoss) {
    const WString text = u"Grüße, Ωμέγα, мир \U0001F33E";
    EXPECT_EQ(toNarrow(text), "Grüße, Ωμέγα, мир \U0001F33E");
    EXPECT_EQ(toWide(toNarrow(text)), text);
}

TEST(String, replacesWhatIsNoText) {
    EXPECT_EQ(toNarrow(WString(u"a\xD800z")), "a\xEF\xBF\xBDz");  // half a pair
    EXPECT_EQ(toWide("a\xFFz"), u"a\uFFFDz");                     // no head byte
    EXPECT_EQ(toWide("a\xE2\x82"), u"a\uFFFD\uFFFD");             // cut
    EXPECT_EQ(toWide("\xC0\xAF"), u"\uFFFD\uFFFD");               // overlong
    EXPECT_EQ(toWide("\xED\xA0\x80"), u"\uFFFD\uFFFD\uFFFD");     // a surrogate in disguise
}

TEST(String, comparesFileNamesByOneRule) {
    EXPECT_EQ(toFileKey("UI\\Logo.XML"), "ui/logo.xml");
    EXPECT_EQ(toFileKey("ÄX"), "Äx");  // only ASCII letters have a second spelling
}

}  // namespace Engine
