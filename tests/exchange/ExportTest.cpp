#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <algorithm>
#include <functional>

#include "exchange/ExportCrusade.h"
#include "exchange/Export.h"
#include "lists/Lists.h"

namespace {

using namespace host;

const std::string Jose = "Jos\xE9", Garcia = "Garc\xED" "a";

// A mail merge line: the record's fields at their full width, the notes trimmed.
std::string MergeLine(const std::string& f, const std::string& l, const std::string& n, const std::string& phone,
                      const std::string& addr, const std::string& city, const std::string& st, const std::string& zip,
                      const std::string& level, const std::string& team, const std::string& notes,
                      const std::string& map, const std::string& adv, const std::string& bapt) {
    return W(f, 20) + "\t" + W(l, 20) + "\t" + n + "\t" + W(phone, 12) + "\t" + W(addr, 30) + "\t" + W(city, 20) +
           "\t" + st + "\t" + W(zip, 10) + "\t" + W("30-39", 10) + "\t" + W("Baptist", 20) + "\t" + level + "\t" +
           W("", 12) + "\t" + team + "\t" + notes + "\t" + W("1", 40).replace(1, 39, std::string(39, '-')) + "\t" +
           W(map, 8) + "\t" + W(adv, 20) + "\t" + W(bapt, 8) + "\r\n";
}

const std::string MergeHeader =
    "FName\tLName\tReg Number\tPhone\tAddress\tCity\tState\tZip\tAge\tRelPref\tIntLevel\tVisits\tWorkerCode\tNotes\t"
    "Attendance\tMapCode\tAdvertising\tBaptism Date\r\n";
const std::string JoseMerge = MergeLine(Jose, Garcia, "0001", "555-0100", "12 Oak St", "Springfield", "IL", "02134",
                                        "G", "03", "Wants visit, evenings", "K7", ".......", "06/01/26");
const std::string MaryMerge = MergeLine("Mary", "O'Neil", "0002", "555-0199", "40 Elm Ave", "Springfield", "IL",
                                        "62701", " ", "00", "", "", ".......", "");
const std::string AnnaMerge = MergeLine("Anna", "Smyth", "0003", "555-0100", "12 Oak St", "Dover", "DE", "62701", " ",
                                        "00", "", "", ".R..P..", "");

struct BytesCase {
    const char* what;
    const char* list;   // "" keeps the full list
    std::function<std::string(ProgramState&)> make;
    std::string expected;
};

// Each file's exact bytes, on the whole list and on a filtered one.
TEST(Export, EachFileHoldsExactlyTheBytesThePartDescribes) {
    const BytesCase cases[] = {
        {"mail merge, everybody", "", [](ProgramState& p) { return exchange::MailMergeText(p, false); },
         MergeHeader + JoseMerge + MaryMerge + AnnaMerge},
        {"mail merge, mail list only", "", [](ProgramState& p) { return exchange::MailMergeText(p, true); },
         MergeHeader + JoseMerge + AnnaMerge},
        {"mail merge, baptized", "baptism", [](ProgramState& p) { return exchange::MailMergeText(p, false); },
         MergeHeader + JoseMerge},
        {"map, mail list only", "", [](ProgramState& p) { return exchange::MapText(p, true); },
         "0001 " + Jose + " " + Garcia + ",12 Oak St,Springfield,IL,02134,555-0100\r\n"
         "0003 Anna Smyth,12 Oak St,Dover,DE,62701,555-0100\r\n"},
        {"map, empty list", "marked", [](ProgramState& p) { return exchange::MapText(p, false); }, ""},
        {"e-mail: nobody without an address", "",
         [](ProgramState& p) { return exchange::EMailText(p); },
         "Name,FName,LName,EMail,Meeting\r\n" + Jose + " " + Garcia + "," + Jose + "," + Garcia +
             ",jose@example.org,Fall\r\nAnna Smyth,Anna,Smyth,anna@example.org,Fall\r\n"},
        {"e-mail, empty list: the header only", "marked", [](ProgramState& p) { return exchange::EMailText(p); },
         "Name,FName,LName,EMail,Meeting\r\n"},
        {"text: the note's comma made a dash", "", [](ProgramState& p) { return exchange::TextFileText(p); },
         "0001\t" + Jose + "\t" + Garcia +
             "\t555-0100\t12 Oak St\tSpringfield\tIL\t02134\tjose@example.org\t.......\tWants visit- evenings\r\n"
             "0002\tMary\tO'Neil\t555-0199\t40 Elm Ave\tSpringfield\tIL\t62701\t\t.......\t\r\n"
             "0003\tAnna\tSmyth\t555-0100\t12 Oak St\tDover\tDE\t62701\tanna@example.org\t.R..P..\t\r\n"},
        {"names and numbers: records and members by name", "",
         [](ProgramState& p) { return exchange::NameAndNumberText(p); },
         "Reg Number\tFName\tLName\r\n0001\t" + W(Jose, 15) + "\t" + W(Garcia, 15) + "\r\n0002\t" + W("Mary", 15) +
             "\t" + W("O'Neil", 15) + "\r\n0102\t" + W("Mary", 15) + "\t" + W("O'Neil", 15) + "\r\n0101\t" +
             W("Anna", 15) + "\t" + W("Smith", 15) + "\r\n0003\t" + W("Anna", 15) + "\t" + W("Smyth", 15) + "\r\n"},
        {"member and interest of one name", "", [](ProgramState& p) { return exchange::DuplicateNamesText(p); },
         "FName\tLName\tReg Number\r\n" + W("Mary", 15) + "\t" + W("O'Neil", 15) + "\t0102\r\n" + W("Mary", 15) +
             "\t" + W("O'Neil", 15) + "\t0002\r\n"},
    };
    for (const BytesCase& c : cases) {
        ExportCrusade x;
        if (*c.list) lists::BuildList(x.p, c.list);
        const std::vector<std::string> listBefore = x.p.SortIndex;
        EXPECT_EQ(c.make(x.p), c.expected) << c.what;
        // The registration lists are built aside: the list on screen still points at records.
        EXPECT_EQ(x.p.SortIndex, listBefore) << c.what;
    }
}

// A line break or a tab that came in with an import, and an address with a
// comma, must not open a column or a row in the files the operator opens.
TEST(Export, FieldsThatWouldShiftColumnsStayInTheirColumn) {
    ExportCrusade x;
    x.p.MasterRec = x.p.UndoRec = MasterRecord{};
    MasterRecord r = MakePerson("0003", "Anna", "Smyth");
    r.Address = "12 Oak St, Apt \"B\"", r.Notes = "Line one\r\nline\ttwo", r.Email = "anna@example.org";
    RecordLayout::Write(x.p.File1, 3, r);
    x.p.SortIndex = {"alpha", "0003SMYTHAN   3"};
    x.p.IndexCount = 1;
    EXPECT_EQ(exchange::MapText(x.p, false), "0003 Anna Smyth,\"12 Oak St, Apt \"\"B\"\"\",Springfield,IL,62701,555-0100\r\n");
    const std::string merge = exchange::MailMergeText(x.p, false);
    EXPECT_NE(merge.find("\tLine one - line two\t"), std::string::npos) << merge;
    EXPECT_EQ(std::count(merge.begin(), merge.end(), '\n'), 2);
    EXPECT_NE(exchange::TextFileText(x.p).find("\tLine one - line two\r\n"), std::string::npos);
}

TEST(Export, TheQuestionDescribesTheCurrentList) {
    struct {
        const char* sortName;
        int cutOff;
        std::string words;
    } cases[] = {
        {"date", 0, " those who have set a baptism date"},
        {"BaptClass", 0, " those who have enrolled in the baptismal/ Bible School class"},
        {"baptism", 0, " those who have been baptized."},
        {"interest", 0, " interest levels A, B and C and those who have been baptized"},
        {"attendnight07", 0, "Filtered for night 7"},
        {"missednight03", 0, "Filtered for those who have missed the last 3 night(s).)"},
        {"wcattend", 0, "Filtered by Team Code Attendance "},
        {"wcalpha", 0, "Filtered Alphabetically by Team Code "},
        {"SelWCAttend05", 0, "North Team Code 05"},
        {"alpha", 0, "all names"},
        {"alphafilter", 3,
         "all names\r\nYou have also chosen to eliminate those who have not attended since night number: 3"},
        {"alpha", 1, "all names"},
    };
    for (const auto& c : cases) {
        ExportCrusade x;
        x.p.TeamNames[5] = "North:555-0123";
        x.p.SortName = c.sortName;
        x.p.PrintCutOff = c.cutOff;
        x.host.ExpectBox("You have selected to write a MailMerge file for " + c.words + "\r\nIn addition", vbCancel);
        exchange::MailMerge(x.p);
        EXPECT_TRUE(x.host.asked.empty()) << "Cancel stops before the dialog";
    }
}

// Through the edit screen's menus: question, dialog with its defaults, file, closing message.
TEST(Export, MenusAskWriteAndTellWhereTheFileIs) {
    struct Case {
        const char* what;
        forms::Menu EditForm::*menu;
        std::string question, questionTitle;
        int answer;
        std::string dialogTitle, filter, proposed;
        std::string chosen;   // under the program's folder; empty: no dialog
        int filterIndex;
        std::string written, done;
        std::size_t lines;
    };
    const std::string nl = "\r\n";
    const Case cases[] = {
        {"mail merge", &EditForm::mnuMailMerge,
         "You have selected to write a MailMerge file for all names" + nl +
             "In addition you can choose to eliminate the names not on the mail list." + nl +
             "Click Yes to eliminate the names which are not on the mail list." + nl +
             "Click No to include all of the selected names, even those not on the mail list." + nl +
             "Click Cancel to exit and change the filter" + nl + nl +
             "If you are going to use the Vestrel macros, for MS Word for Windows, you must write the merge file to:" +
             nl + "    'C:\\Program Files\\Vestrel\\Data\\VestMerge.doc.'",
         "Mail Merge Options", vbYes, "Create a MailMerge File", "Crusade Files (*.doc)|*.doc|Crusade Files",
         "VestMerg.Doc", "VestMerg.Doc", 1, "VestMerg.Doc", "The file containing Mail Merge Data is found in ", 3},
        {"map", &EditForm::mnuExpMap,
         "You have selected to Export a text file for Maping." + nl + "Filter: all names" + nl +
             "It is suggested that you choose to eliminate the names not on the mail list in order to remove "
             "duplicate addresses." + nl + "Click Yes to eliminate the names which are not on the mail list." + nl +
             "Click No to include all of the selected names, even those not on the mail list." + nl +
             "Click Cancel to exit and change the filter",
         "Export to Maping", vbNo, "Export File for Maping", "Text (*.txt)|*.txt", "VestrelMapFile.txt",
         "streets.txt", 1, "streets.txt", "The file containing Mail Merge Data is found in ", 3},
        {"e-mail as csv", &EditForm::mnuEmail, "", "", 0, "Create an E-Mail File",
         "Text (*.txt)|*.txt|CSV (*.csv)|*.csv", "Vestrel_EMail", "Vestrel_EMail", 2, "Vestrel_EMail.csv",
         "The file containing E-Mail Data is found in ", 3},
        {"e-mail as txt", &EditForm::mnuEmail, "", "", 0, "Create an E-Mail File",
         "Text (*.txt)|*.txt|CSV (*.csv)|*.csv", "Vestrel_EMail", "mail", 1, "mail.txt",
         "The file containing E-Mail Data is found in ", 3},
        {"text file", &EditForm::mnuExportText, "", "", 0, "", "", "", "", 0, "data/Fall.txt",
         "The Text File has been Saved to: ", 3},
        {"names and numbers", &EditForm::mnuNamAndNum, "", "", 0, "Create a MailMerge File",
         "Crusade Files (*.doc)|*.doc|Crusade Files", "VestMerg.Doc", "names.doc", 1, "names.doc",
         "The file containing Mail Merge Data is found in ", 6},
        {"duplicate names", &EditForm::mnuMMDupIntMemNam, "", "", 0, "Create a MailMerge File",
         "Crusade Files (*.doc)|*.doc|Crusade Files", "VestMerg.Doc", "dups.doc", 1, "dups.doc",
         "The file containing Mail Merge Data is found in ", 3},
    };
    for (const Case& c : cases) {
        ExportCrusade x;
        EditForm& e = x.Edit();
        if (!c.question.empty()) x.host.ExpectBox(c.question, c.answer, c.questionTitle, vbYesNoCancel);
        if (!c.chosen.empty()) x.host.answers.push_back({x.appPath + "/" + c.chosen, c.filterIndex});
        const std::string written = x.appPath + "/" + c.written;
        x.host.ExpectBox(c.done + written, vbOK, "");
        EXPECT_TRUE((e.*c.menu).Enabled()) << c.what;
        (e.*c.menu).UserClick();
        x.host.Verify();
        if (!c.chosen.empty()) {
            ASSERT_EQ(x.host.asked.size(), 1u) << c.what;
            EXPECT_EQ(x.host.asked[0].DialogTitle, c.dialogTitle) << c.what;
            EXPECT_EQ(x.host.asked[0].Filter, c.filter) << c.what;
            EXPECT_EQ(x.host.asked[0].FileName, x.appPath + "/" + c.proposed) << c.what;
        }
        const std::string bytes = x.Read(written);
        EXPECT_EQ(static_cast<std::size_t>(std::count(bytes.begin(), bytes.end(), '\n')), c.lines) << c.what << bytes;
        // Nothing but the file itself is left beside it.
        for (const auto& f : std::filesystem::directory_iterator(std::filesystem::path(written).parent_path()))
            EXPECT_EQ(f.path().filename().string().find(".tmp"), std::string::npos) << f.path();
    }
}

TEST(Export, ExportsToAccessAndAddLastMeetingHaveNoActionAndStayDisabled) {
    ExportCrusade x;
    EditForm& e = x.Edit();
    EXPECT_FALSE(e.mnuExportToAccess.Enabled());
    EXPECT_FALSE(e.mnuAddLastMeeting.Enabled());
    EXPECT_TRUE(e.mnuMMergeTitle.Enabled());
}

// Cancel in the question or in the dialog writes nothing.
TEST(Export, CancelWritesNothing) {
    ExportCrusade x;
    EditForm& e = x.Edit();
    x.host.ExpectBox("MailMerge file for", vbCancel);
    e.mnuMailMerge.UserClick();
    x.host.ExpectBox("Maping", vbYes);
    x.host.answers.push_back({"", 1});
    e.mnuExpMap.UserClick();
    x.host.answers.push_back({"", 1});
    e.mnuEmail.UserClick();
    x.host.Verify();
    EXPECT_FALSE(std::filesystem::exists(x.appPath + "/VestMerg.Doc"));
    EXPECT_FALSE(std::filesystem::exists(x.appPath + "/VestrelMapFile.txt"));
}

}  // namespace
