#include <gtest/gtest.h>

#include "logging/log_names.h"
#include "logging/report_fields.h"

namespace tv {
namespace {

using Fields = std::vector<std::string>;

TEST(ReportNames, DatesArePaddedTimesGetTheirColonsAndBothLeadBackToTheName) {
    EXPECT_EQ(paddedDate("3-5-2006"), "03-05-2006");
    EXPECT_EQ(paddedDate("1-5-9"), "01-05-9");  // the last part (the year) is never padded
    EXPECT_EQ(paddedDate("12-31-2006"), "12-31-2006");
    EXPECT_EQ(paddedDate("2006.03.05"), "2006.03.05");  // no "-": one part
    EXPECT_EQ(paddedDate("3--5"), "03--5");
    EXPECT_EQ(paddedDate(""), "");

    EXPECT_EQ(shownTime("3_04_07PM"), "3:04:07 PM");
    EXPECT_EQ(shownTime("11_59_59AM"), "11:59:59 AM");
    EXPECT_EQ(shownTime("13_04_07"), "13:04:07");       // a 24-hour clock gets no blank
    EXPECT_EQ(shownTime("3_04_07pm"), "3:04:07pm");     // nor lower-case marks

    EXPECT_EQ(reportFileName("03-05-2006", "3:04:07 PM"), "03-05-2006(3_04_07PM).log");
    EXPECT_EQ(reportFileName("2006.03.05", "13:04:07"), "2006.03.05(13_04_07).log");
    EXPECT_EQ(reportFileName("", "a b:c"), "(ab_c).log");
}

TEST(ReportNames, ListedNamesAndTheTextsTheTreeShowsOfThem) {
    for (const char* name : {"03-05-2006(3_04_07PM).log", "x.LoG", ".log"}) EXPECT_TRUE(looksLikeReport(name)) << name;
    for (const char* name : {".", "..", "log", "a.txt", "a.log.bak", ""}) EXPECT_FALSE(looksLikeReport(name)) << name;

    const auto stamp = reportStamp("3-5-2006(3_04_07PM).log");
    ASSERT_TRUE(stamp);
    EXPECT_EQ(stamp->date, "03-05-2006");
    EXPECT_EQ(stamp->time, "3:04:07 PM");
    EXPECT_EQ(reportStamp("03-05-2006(3_04_07PM.log")->time, "");  // no ")": no time
    EXPECT_EQ(reportStamp("(1_00_00AM).log")->date, "");
    EXPECT_EQ(reportStamp("a(b)c(d).log")->time, "b");
    EXPECT_FALSE(reportStamp("notes.log"));  // no "(": no date either
    EXPECT_FALSE(reportStamp(".log"));
}

TEST(ReportFields, HeadingThenFilesUpToTheFirstEmptyField) {
    EXPECT_EQ(reportFields("Heading,C:\\A.DLL,C:\\B.DLL\r\n"), (Fields{"Heading", "C:\\A.DLL", "C:\\B.DLL"}));
    EXPECT_EQ(reportFields("  Heading , A \r\nB"), (Fields{"Heading", "A", "B"}));  // a line end is a comma
    EXPECT_EQ(reportFields("Heading,A,,B"), (Fields{"Heading", "A"}));
    EXPECT_EQ(reportFields("Heading, ,B"), (Fields{"Heading"}));
    EXPECT_EQ(reportFields("Heading,\r\n"), (Fields{"Heading"}));
    EXPECT_EQ(reportFields("H,A\nB\r\r\nC"), (Fields{"H", "A\nB\r", "C"}));  // only CR LF ends a line
    EXPECT_EQ(reportFields(",,,,"), Fields{});
    EXPECT_EQ(reportFields(""), Fields{});
    EXPECT_EQ(reportFields(std::string(64, '\0')), Fields{std::string(64, '\0')});  // NULs are characters
}

}  // namespace
}  // namespace tv
