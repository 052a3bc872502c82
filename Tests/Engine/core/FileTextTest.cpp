#include "Engine/core/FileText.h"

#include <gtest/gtest.h>

#include <limits>

#include "Engine/core/MemoryFile.h"
#include "Tests/Support/DataDirectory.h"

namespace Engine {

namespace {

String bytesOf(const cMemoryFile& file) {
    return String(file.getBytes().data(), file.getBytes().size());
}

cMemoryFile fileOf(const std::string& bytes) {
    return cMemoryFile(std::vector<char>(bytes.begin(), bytes.end()));
}

}  // namespace

TEST(FileText, writesLengthsAndUnitsInFixedWidths) {
    cMemoryFile file;
    writeStringAsPascal(&file, "ab");
    writeWStringAsPascal(&file, u"\u0416");
    writeWStringAsRaw(&file, u"z", 1);
    EXPECT_EQ(bytesOf(file), String("\2\0\0\0ab\1\0\0\0\x16\4z\0", 14));
}

TEST(FileText, readsBackWhatItWrote) {
    cMemoryFile file;
    writeStringAsPascal(&file, "Mühle");
    writeWStringAsPascal(&file, u"Mühle \U0001F33E");
    writeStringAsPascal(&file, "");
    file.seek(0, iFile::from_start);
    String narrow;
    WString wide;
    readStringAsPascal(&file, narrow);
    readWStringAsPascal(&file, wide);
    EXPECT_EQ(narrow, "Mühle");
    EXPECT_EQ(wide, u"Mühle \U0001F33E");
    readStringAsPascal(&file, narrow);
    EXPECT_EQ(narrow, "Mühle");  // an empty string leaves what was there
}

TEST(FileText, refusesALengthThatTheFileDoesNotHold) {
    for (const std::string& bytes : {std::string("\xFF\xFF\xFF\xFF"
                                                 "ab",
                                                 6),
                                     std::string("\2\0\0\0a", 5), std::string("\1\0", 2)}) {
        cMemoryFile file = fileOf(bytes);
        WString text = u"old";
        EXPECT_THROW(readWStringAsPascal(&file, text), const char*);
        EXPECT_EQ(text, u"old");
    }
}

TEST(FileText, marksDocumentsInTheWritableDirectory) {
    cDataDirectory data;
    writeWStringAsXml("sub/file.xml", u"<a/>");
    EXPECT_EQ(data.read("sub/file.xml"), toBytes(u"\uFEFF<a/>"));
}

TEST(FileText, escapesOnlyWhatMarkupWouldMistake) {
    EXPECT_EQ(xmlEscape(u"&'><\"&amp;"), u"&amp;&apos;&gt;&lt;&quot;&amp;amp;");
    EXPECT_EQ(toXmlText(u"it's > that"), u"it's > that");
    EXPECT_EQ(toXmlText(u"it's <that"), u"it&apos;s &lt;that");
    EXPECT_EQ(toXmlText(u"a]]>b"), u"a]]&gt;b");
    EXPECT_EQ(toXmlText(u"\x01\U0001F33E"), u"\uFFFD\U0001F33E");
    EXPECT_EQ(toXmlText(WString(u"a\xD83C")), u"a\uFFFD");
    EXPECT_EQ(toXmlText(WString(u"\xDF3E\xDF3E")), u"\uFFFD\uFFFD");
}

TEST(FileText, tellsTimesInMinutesAndSeconds) {
    EXPECT_EQ(secondsToText(0.0f), u"00:00");
    EXPECT_EQ(secondsToText(59.99f), u"00:59");
    EXPECT_EQ(secondsToText(60.0f), u"01:00");
    EXPECT_EQ(secondsToText(7325.0f), u"122:05");
    EXPECT_EQ(secondsToText(-3.0f), u"00:00");
    EXPECT_EQ(secondsToText(std::numeric_limits<Float>::quiet_NaN()), u"00:00");
}

}  // namespace Engine
