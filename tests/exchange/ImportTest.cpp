#include <gtest/gtest.h>

#include <fstream>

#include "exchange/Import.h"
#include "exchange/ImportPreview.h"
#include "platform/vb/Strings.h"
#include "support/TestCrusade.h"

using namespace exchange;

namespace {

// Two people in the crusade; the second lives where one of the imported rows says.
std::vector<MasterRecord> Crusade() {
    MasterRecord a = MakePerson("0100", "Ann", "Baker");
    MasterRecord b = MakePerson("0101", "Bob", "Bell");
    b.Address = "9 Elm St";
    return {a, b};
}

struct ImportRun {
    TestCrusade c;
    EditForm& e = c.ShowOnEditScreen(Crusade());
    std::string csv = c.appPath + "/data/Spring.csv";
    std::vector<std::string> rows, warnings;
    std::string picked;

    // Runs the menu entry through its questions; the preview's rows and warnings are kept.
    void Run(const std::string& bytes, bool import = true, const std::string& after = "",
             const std::string& pick = "/home/op/Names.csv") {
        c.WriteFile(csv, bytes);
        c.host.ExpectBox("export the data from Excel as a '.csv' file", host::vbOK, "Import Text File into Interest File");
        c.host.ExpectOpen("Import Excel File into Vestrel", pick);
        c.host.ExpectBox("You will Import the records from:\r\n      " + pick, host::vbYes);
        c.host.OnModal("ImportPreview", [this, import](forms::Form& f) {
            auto& pv = dynamic_cast<ImportPreview&>(f);
            rows = pv.lstRows.List();
            warnings = pv.lstWarnings.List();
            picked = pv.lblPicked.Visible() ? pv.lblPicked.Caption() : "";
            (import ? pv.btnImport : pv.btnCancel).UserClick();
        });
        if (!after.empty()) c.host.ExpectBox(after);
        e.mnuImportText.UserClick();
    }
};

template <std::size_t N>
std::string T(const FixedText<N>& s) { return vb::RTrim(s.str()); }

}  // namespace

// The file as a spreadsheet saves it: UTF-8 accents, a quoted comma, a row cut short
// (the rest of the person is on the next line), a number the crusade has, a long field.
TEST(Import, HandMadeFileLandsAsThePeopleItHolds) {
    ImportRun r;
    r.Run("0201,Zo\xC3\xAB,M\xC3\xBCller,\"12 Oak St, Apt 2\",Springfield,IL,01234,555-0101,zoe@example.org\r\n"
          "0202,Bob,Bell\r\n"
          "9 Elm St,Dover,DE,19901,555-0102,bob@example.org\r\n"
          "0100,Cy,Adams,1234 Very Long Avenue Name That Goes On,Dover,DE,19901,555-0103,cy@example.org\r\n");
    ASSERT_EQ(5, r.c.RecordsOnDisk());
    const MasterRecord zoe = r.c.ReadRecord(3), bob = r.c.ReadRecord(4), cy = r.c.ReadRecord(5);
    const std::vector<std::string> got{T(zoe.RNum), T(zoe.FName), T(zoe.LName), T(zoe.Address), T(zoe.City),
                                       T(zoe.State), T(zoe.Zip), T(zoe.Phone), T(zoe.Email)};
    EXPECT_EQ((std::vector<std::string>{"0201", "Zo\xEB", "M\xFCller", "12 Oak St, Apt 2", "Springfield", "IL", "01234",
                                        "555-0101", "zoe@example.org"}),
              got);
    EXPECT_EQ("9 Elm St", T(bob.Address));
    EXPECT_EQ("bob@example.org", T(bob.Email));
    EXPECT_EQ("1234 Very Long Avenue Name Tha", cy.Address.str());   // cut to the field's 30
    // Every other field takes its fixed value.
    EXPECT_EQ("1" + std::string(39, '-'), zoe.Attendance.str());
    EXPECT_EQ(" 1", zoe.Attend.str());
    EXPECT_EQ(1, zoe.Last);
    EXPECT_EQ(1, zoe.MailList);
    EXPECT_EQ("00", zoe.WorkerCode.str());
    EXPECT_EQ("NIF", T(zoe.Age));
    EXPECT_EQ("....P..", T(zoe.Advertising));
    EXPECT_EQ("UnSpecified", T(zoe.RelPref));
    EXPECT_EQ("---------", T(zoe.Decisions));
    EXPECT_EQ("", T(zoe.Notes) + T(zoe.Visits) + T(zoe.IntLevel) + T(zoe.MapCode) + T(zoe.BaptDate) + T(zoe.BirthDate));
    EXPECT_EQ(0, zoe.Class + zoe.IntFlag + zoe.MarkToVisit);
    // The list holds them at once, in name order.
    EXPECT_EQ(5, r.c.p.IndexCount);
    EXPECT_EQ("of 5", vb::Right(r.e.RecordCounter.Caption(), 4));
    EXPECT_EQ("0100ADAMSCY", r.c.p.SortIndex[1].substr(0, 11));

    // The preview showed them in the nine columns and said what to look at.
    ASSERT_GE(r.rows.size(), 4u);
    EXPECT_EQ("0201 Zo\xEB          M\xFCller         12 Oak St, Apt 2", r.rows[1].substr(0, 49));
    EXPECT_NE(std::string::npos, r.picked.find("/home/op/Names.csv"));
    EXPECT_EQ((std::vector<std::string>{
                  "Line 2: fewer than 9 columns: the rest of this person is taken from the next line.",
                  "Line 2: Bob Bell is already in the crusade at 9 Elm St.",
                  "Line 4: number 0100 is already in the crusade."}),
              r.warnings);
}

// What can go wrong with the file: each case as Input # reads it after the text is brought to Windows-1252.
TEST(Import, BadInputIsReadAsFarAsItGoes) {
    auto utf16 = [](const std::string& ascii) {
        std::string out = "\xFF\xFE";
        for (char ch : ascii) out += std::string{ch == '~' ? '\xEB' : ch, '\0'};
        return out;
    };
    const std::string tail = ",Lee,1 Main,Dover,DE,19901,555,e@x.org\r\n";
    struct Case {
        const char* what;
        std::string bytes;
        std::size_t people;
        long partialLine;
        std::string firstName;
        TextKind kind;
    } cases[] = {
        {"empty", "", 0, 0, "", TextKind::Ansi},
        {"ends mid-person", "1,Ann" + tail + "2,Bo,Lee\r\n", 1, 2, "Ann", TextKind::Ansi},
        {"ends mid-person after a comma", "1,Ann" + tail + "2,Bo,Lee,1 Main,Dover,DE,19901,\r\n", 1, 2, "Ann", TextKind::Ansi},
        {"NUL byte", std::string("1,A\0nn", 6) + tail, 1, 0, "Ann", TextKind::Ansi},
        {"UTF-8 with mark", "\xEF\xBB\xBF" "1,Zo\xC3\xAB" + tail, 1, 0, "Zo\xEB", TextKind::Utf8},
        {"UTF-16", utf16("1,Zo~" + tail), 1, 0, "Zo\xEB", TextKind::Utf16},
        {"not UTF-8", "1,Zo\xEB" + tail, 1, 0, "Zo\xEB", TextKind::Ansi},
        {"100,000 characters", "1," + std::string(100000, 'x') + tail, 1, 0, std::string(100000, 'x'), TextKind::Ansi},
        {"quoted line end", "1,\"Ann\r\nMarie\"" + tail, 1, 0, "Ann\r\nMarie", TextKind::Ansi},
    };
    TempFolder dir;
    for (const Case& k : cases) {
        SCOPED_TRACE(k.what);
        {
            std::ofstream(dir / "in.csv", std::ios::binary) << k.bytes;
        }
        ImportFile f = ReadImportFile(dir / "in.csv");
        EXPECT_EQ(k.people, f.people.size());
        EXPECT_EQ(k.partialLine, f.partialLine);
        EXPECT_EQ(k.kind, f.kind);
        if (!f.people.empty()) {
            EXPECT_EQ(k.firstName, f.people[0].fields[1]);
            EXPECT_EQ("e@x.org", f.people[0].fields[8]);
            EXPECT_EQ(vb::Fixed(k.firstName, 20), ImportedRecord(f.people[0].fields).FName.str());
        }
    }
}

// Through the menu: what is written and said for a file ending mid-person, an empty
// file, a preview cancelled, numbers clashing inside the file, and no file beside the crusade.
TEST(Import, MenuWritesOnlyWhatThePreviewOffered) {
    const std::string person = "0301,Di,Cole,1 Main,Dover,DE,19901,555-0104,di@example.org\r\n";
    struct Case {
        const char* what;
        std::string bytes;
        bool import;
        long onDisk;
        std::string after;
        std::string warning;
    } cases[] = {
        {"ends mid-person", person + "0302,Ed,Brown\r\n", true, 3,
         "The file ends in the middle of the person on line 2.\r\n1 person was imported; that last person was not.",
         "Line 2: the file ends in the middle of a person (3 of 9 columns): that person is not imported."},
        {"empty", "", true, 2, "", ""},
        {"long row, then ends mid-person", person + "0303,Ed,Brown,7 Pine Rd,Dover,DE,19901,555-0106,ed@example.org,extra\r\n"
         "0304,Flo,Burke,3 Birch Ln,Dover,DE,19901\r\n9798,Lisa,Adams,16 Walnut Ave,Dover,TN,37405,555-0159,\r\n", true, 5,
         "The file ends in the middle of the person on line 4.\r\n3 people were imported; that last person was not.",
         "Line 4: the file ends in the middle of a person (7 of 9 columns): that person is not imported."},
        {"cancelled", person, false, 2, "", ""},
        {"numbers clash", person + person, true, 4, "", "Line 2: number 0301 is used twice in this file."},
    };
    for (const Case& k : cases) {
        SCOPED_TRACE(k.what);
        ImportRun r;
        r.Run(k.bytes, k.import, k.after);
        EXPECT_EQ(k.onDisk, r.c.RecordsOnDisk());
        EXPECT_EQ(k.onDisk, r.c.p.IndexCount);
        EXPECT_EQ(k.warning, r.warnings.empty() ? "" : r.warnings.back());
    }
    ImportRun none;
    none.c.host.ExpectBox("export the data", host::vbOK);
    none.c.host.ExpectOpen("Import Excel", none.csv);
    none.c.host.ExpectBox("You will Import", host::vbYes);
    none.c.host.ExpectBox("There is no such file");
    none.e.mnuImportText.UserClick();
    EXPECT_EQ(2, none.c.RecordsOnDisk());
}
