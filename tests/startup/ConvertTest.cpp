#include <gtest/gtest.h>

#include "platform/vb/Files.h"
#include "platform/vb/Strings.h"
#include "store/Info.h"
#include "support/TestCrusade.h"

namespace {
// An old record: the fields up to BaptDate with 100-byte notes, then the old tail.
std::string OldRecord(int length, const std::string& rnum, const std::string& last) {
    std::string r;
    auto text = [&](const std::string& s, std::size_t w) { r += vb::Fixed(s, w); };
    auto int16 = [&](int v) { r += static_cast<char>(v & 0xFF); r += static_cast<char>((v >> 8) & 0xFF); };
    text(rnum, 4); text("Ann", 20); text(last, 20); text("1 Elm St", 30); text("Salem", 20); text("OR", 2);
    text("97301", 10); text("555-0199", 12); text("40-49", 10); text("X......", 20); text("Lutheran", 20);
    text("B", 1); text("LV", 12); text("05", 2); text(std::string(100, 'n'), 100); text("12-", 40); text("2", 2);
    int16(2); int16(-1); text("C--------", 12); int16(-1); text("M12", 8); text("01/02/99", 8);
    int16(-1); text(length == 371 ? "3/4/50" : "ignored!", 8); if (length == 371) int16(-1);
    return r;
}

void OldInfo(TestCrusade& c, const std::string& versionLine) {
    c.WriteFile(c.p.CrusadeFile("inf"), "Old\r\n1/1/1998\r\n 2\r\n 9990 \r\nDOWN\r\n\r\n 1 \r\n 0 \r\n" +
                                            versionLine + (versionLine.empty() ? "" : "\r\n"));
}
}  // namespace

TEST(Conversion, A371ByteFileBecomesTheCurrentFormKeepingABak) {
    TestCrusade c;
    const std::string older = OldRecord(371, "9998", "Older");
    c.WriteFile(c.dataFile, OldRecord(371, "9999", "Olds") + older);
    OldInfo(c, "");   // no version line: version 0, the 371 path
    c.p.MasterRec.BirthDate = "9/9/99", c.p.MasterRec.Email = "x@y.org";   // another crusade's person, still held
    c.host.ExpectBox("created with an older version", host::vbOK, std::nullopt, host::vbOKCancel | host::vbCritical)
        .ExpectBox("Conversion Complete.");
    LoadInfo(c.p);
    EXPECT_EQ(742, vb::FileLen(c.p.CrusadeFile("bak")));
    // Notes grow by 50 blanks; the old tail goes: no card flag, birth date, mark or e-mail.
    const std::string zero(2, '\0');
    const std::string want = older.substr(0, 283) + std::string(50, ' ') + older.substr(283, 76) + zero +
                             std::string(8, ' ') + zero + std::string(40, ' ');
    EXPECT_TRUE(want == c.ReadFile(c.dataFile).substr(MasterRecord::Length)) << "the converted record";
    // The version line is current now: no second question.
    LoadInfo(c.p);
    EXPECT_NE(std::string::npos, c.ReadFile(c.p.CrusadeFile("inf")).find("version 2.5.0"));
}

TEST(Conversion, A369ByteFileKeepsItsCardFlag) {
    TestCrusade c;
    c.WriteFile(c.dataFile, OldRecord(369, "9999", "Olds"));
    // The number 2.5 passes the first test; the text sorts below "version 2.2.0".
    OldInfo(c, "Version 2.5.0");
    c.p.MasterRec.BirthDate = "7/7/77";
    c.host.ExpectBox("older version", host::vbOK).ExpectBox("Conversion Complete. ");
    LoadInfo(c.p);
    MasterRecord r = c.ReadRecord(1);
    // The birth date is what the buffer held.
    EXPECT_EQ((std::vector<std::string>{"Olds", "-1", "7/7/77", "0", "369"}),
              (std::vector<std::string>{vb::RTrim(r.LName), std::to_string(r.IntFlag), vb::RTrim(r.BirthDate),
                                        std::to_string(r.MarkToVisit),
                                        std::to_string(vb::FileLen(c.p.CrusadeFile("bak")))}));
}

TEST(Conversion, AFileThatPlainlyIsNotOldIsLeftAlone) {
    TestCrusade c;
    c.WriteRecords({MakePerson("9998", "A", "Able")});
    std::string before = c.ReadFile(c.dataFile);
    OldInfo(c, "");
    c.host.ExpectBox("was not converted");
    LoadInfo(c.p);
    EXPECT_TRUE(before == c.ReadFile(c.dataFile) && !vb::FileExists(c.p.CrusadeFile("bak")));
}

TEST(Conversion, CancelEndsTheProgramAndAnExistingBakLeavesTheOldFileInPlace) {
    TestCrusade c;
    std::string old = OldRecord(371, "9999", "Olds");
    c.WriteFile(c.dataFile, old);
    c.WriteFile(c.p.CrusadeFile("bak"), "already here");
    OldInfo(c, "");
    c.host.ExpectBox("older version", host::vbCancel);
    EXPECT_THROW(LoadInfo(c.p), host::EndProgram);
    c.host.ExpectBox("older version", host::vbOK).ExpectBox("Conversion Complete.");
    LoadInfo(c.p);
    EXPECT_EQ(old + "already here", c.ReadFile(c.dataFile) + c.ReadFile(c.p.CrusadeFile("bak")));
    EXPECT_TRUE(vb::FileExists(c.appPath + "/data/TempConvert.dta"));
}
