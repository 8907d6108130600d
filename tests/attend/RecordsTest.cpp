// Delete, restore and the move to the members; prayer requests; appointments.
#include <gtest/gtest.h>

#include "attend/AttendF.h"
#include "edit/CardCrusade.h"
#include "edit/Navigate.h"
#include "platform/vb/Strings.h"
#include "tables/AppointmentFm.h"

using namespace forms;
using vb::RTrim;

namespace {
// On the edit screen: Adams, Avery, Baker, Bell, Brown, Burke, Cole, Cruz.
void ShowAt(Program& p, EditForm& e, int index) {
    p.CurrentIndex = index;
    ASSERT_TRUE(FetchCurrentRecord(p));
    e.ShowRecord();
}
// The person shown and the buttons and menu the deleted view changes.
std::string View(EditForm& e) {
    return e.LName.Text() + (e.btnUndelete.Visible() ? " undelete" : "") + (e.btnDelete.Visible() ? " delete" : "") +
           (e.mnuFile.Enabled() ? " file" : "");
}
using DeleteAndRestore = CardCrusade;
using Prayer = CardCrusade;
using Appointment = CardCrusade;
const char* const MoveTitle = "                     Remove SDA Names";
}  // namespace

TEST_F(DeleteAndRestore, TwoQuestionsThenTheDeletedViewBringsThePersonBack) {
    ShowAt(p, e, 3);   // Ann Baker, record 1
    struct Try { std::vector<int> answers; std::string after; };
    for (const Try& t : std::vector<Try>{{{host::vbNo}, "00 8 Baker"}, {{host::vbYes, host::vbNo}, "00 8 Baker"}, {{host::vbYes, host::vbYes}, "## 7 Bell"}}) {
        c.host.ExpectBox("Are you sure you want to remove this record from the INTEREST file?", t.answers[0], "Delete Record", host::vbYesNo | host::vbCritical);
        if (t.answers.size() > 1) c.host.ExpectBox("This is your last chance to back out.", t.answers[1], "Delete Record");
        e.btnDelete.UserClick();
        EXPECT_EQ(t.after, c.ReadRecord(1).WorkerCode.str() + " " + std::to_string(p.IndexCount) + " " + e.LName.Text());
    }
    EXPECT_TRUE(Played("S03.wav"));

    // The deleted view, as the list of deleted people leaves it.
    p.SortName = "undelete";
    p.SortIndex = {"", "0012BAKERAN   1"};
    p.IndexCount = 1;
    e.ShowDeletedView();
    EXPECT_EQ("Baker undelete", View(e));
    c.host.ExpectBox("Are you sure you want to restore this record to the file?", host::vbYes, "Delete Record ");
    c.host.ExpectBox("The Record for Ann Baker has been successfully restored to the INTEREST file.");
    e.btnUndelete.UserClick();
    EXPECT_EQ("00 8 Baker undelete delete file", c.ReadRecord(1).WorkerCode.str() + " " + std::to_string(p.IndexCount) + " " + View(e));
}

TEST_F(DeleteAndRestore, AMoveLeavesADeletedRecordAndAMemberLine) {
    ShowAt(p, e, 4);   // Bob Bell, record 2
    c.host.ExpectBox("         0100  Bob Bell\r\nand add the name and number to the SDA members File.", host::vbYes, MoveTitle, host::vbYesNo);
    c.host.ExpectBox("INTEREST file?\r\nand add it to the SDA MEMBER File?", host::vbYes, MoveTitle);
    p.ScratchValue = "right click";   // left by a right press whose click never came
    e.btnSDA.UserClick();
    EXPECT_EQ(std::make_tuple(std::string("##"), 7, std::string()),
              std::make_tuple(c.ReadRecord(2).WorkerCode.str(), p.IndexCount, e.DeleteTitle));
    EXPECT_EQ("0100Bell           Bob            \r\n", c.ReadFile(p.CrusadeFile("mem")));

    // Refused: the door screen open, and the last entry of a list.
    p.ScratchValue = "3";
    p.Attend();
    c.host.ExpectBox("You cannot delete a record while the Attendance form is open.");
    e.mnuDeleteRecord.UserClick();
    p.Attend().Unload();
    p.IndexCount = 1;
    c.host.ExpectBox("You Cannot Delete the Last Record from the File.");
    e.mnuDeleteRecord.UserClick();
    EXPECT_EQ("1 00", std::to_string(p.IndexCount) + " " + c.ReadRecord(4).WorkerCode.str());
}

TEST_F(Prayer, TwoMeetingsGetTheirHeadingsAndOnlyTheFirstCommaGoes) {
    p.MeetingNumber = 2;
    const std::string ask = "Type in the Request below.";
    c.host.ExpectInput(ask, "Pray for her mother, sister, and job");
    e.btnPrayer.UserClick();
    c.host.ExpectInput(ask, "");   // nothing written
    e.btnPrayer.UserClick();
    c.host.ExpectInput(ask, "Second one");
    e.mnuEnterPrayerRequest.UserClick();
    p.MeetingNumber = 3;
    ShowAt(p, e, 2);
    c.host.ExpectInput(ask, "New job");
    e.btnPrayer.UserClick();
    const std::string path = c.appPath + "/data/Spring_prayer.txt";
    EXPECT_EQ("PRAYER REQUESTS AND COMMENTS FOR: Fall Meeting\r\n\r\n"
              "\r\nPRAYER REQUESTS AND COMMENTS FOR MEETING: 2\r\n"
              "    0101  Cy Adams- Pray for her mother- sister, and job\r\n"
              "    0101  Cy Adams- Second one\r\n"
              "\r\nPRAYER REQUESTS AND COMMENTS FOR MEETING: 3\r\n"
              "    0106  Hal Avery- New job\r\n",
              c.ReadFile(path));
    e.mnuViewPrayerList.UserClick();
    EXPECT_EQ(path, c.host.opened.back());
    c.host.openResult = 2;
    c.host.ExpectBox(path);   // the list is there: where to find it
    e.mnuViewPrayerList.UserClick();
}

TEST_F(Appointment, ClicksMakeTheCodeInVisits) {
    // Day and hour -1: not chosen. Box: a refusal shown, then Cancel.
    struct Row { std::string before; int day, hour; bool unspecified; std::string after; int classAfter; std::string box; };
    const std::vector<Row> rows = {
        {"h07", 1, 8, false, "h07A24", vbChecked, ""},                // Monday 4:00
        {"h07A24", 2, 0, false, "h07A3a", vbChecked, ""},              // replaced where it stands
        {"h01h02h03h04", 1, 8, false, "h02h03h04A24", vbChecked, ""},  // the oldest visit falls off
        {"h07", -1, -1, true, "h07A00", vbChecked, ""},
        {"h07A24m08", -1, -1, false, "h07m08", vbUnchecked, ""},       // nothing chosen: no appointment
        // The click unticked the box before the dialog opened; Cancel puts it back.
        {"h07", 3, -1, false, "h07", vbChecked, "Choose both a day and a time"},
    };
    for (const Row& r : rows) {
        e.Visits.SetText(r.before);
        e.Class.SetValue(vbChecked);
        c.host.OnModal("AppointmentFm", [&](Form& form) {
            auto& a = static_cast<AppointmentFm&>(form);
            if (r.before.find("A24") != std::string::npos) {   // the one set shows chosen
                EXPECT_EQ("1 1 Monday: 4:00pm", std::to_string(!!a.optAptDay[1].Value()) + " " + std::to_string(!!a.optAptTime[8].Value()) + " " + a.lblApt.Caption());
            }
            for (int i = 0; i < 7; ++i) a.optAptDay[i].SetValue(i == r.day);
            for (int i = 0; i < 14; ++i) a.optAptTime[i].SetValue(i == r.hour);
            a.btnUnspecified.SetValue(r.unspecified ? vbChecked : vbUnchecked);
            if (!r.box.empty()) c.host.ExpectBox(r.box);
            a.btnSave.UserClick();
            if (!r.box.empty()) a.btnCancelApt.UserClick();
        });
        e.Class.UserClick();
        EXPECT_EQ(std::make_tuple(r.after, r.classAfter, std::string("Appointment")), std::make_tuple(e.Visits.Text(), e.Class.Value(), c.p.CallerForm)) << r.before;
    }
}
