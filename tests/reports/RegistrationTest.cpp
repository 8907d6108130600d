#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "reports/Registration.h"
#include "store/Attendance.h"
#include "support/TestCrusade.h"

using namespace host;
using Op = RecordingSurface::Op;

namespace {

std::string Num3(int i) { return (i < 100 ? "0" : "") + std::string(i < 10 ? "0" : "") + std::to_string(i); }

// People 1001 up, named Person001 up, whose last meeting is the one given (0: none).
MasterRecord Person(int i, int last = 3) {
    std::string att(40, '-');
    if (last > 0) att[static_cast<std::size_t>(last - 1)] = '1';
    MasterRecord r = MakePerson(std::to_string(1000 + i), "Ann", "Person" + Num3(i), att);
    CountAttendance(r);
    return r;
}

struct Door {
    TestCrusade c;
    EditForm* e = nullptr;
    RecordingSurface& out = c.host.printer;
    ~Door() { c.host.Verify(); }

    void Load(const std::vector<MasterRecord>& people, int meeting = 5) {
        e = &c.ShowOnEditScreen(people);
        c.p.MeetingNumber = meeting;
        c.p.LabelRight = 3;   // columns at 0.8, 7.8 and 14.8
        out.Clear();
    }
    void Run(forms::Menu& m, bool members = false, bool print = true) {
        c.host.ExpectBox("Do you want to include SDA members in this list?", members ? vbYes : vbNo,
                         "Arrange Decisions by Interest Level or Alphabetical", vbYesNo);
        c.host.ExpectPrinter([print](PrinterDialog&) { return print; });
        m.UserClick();
    }
    const Op& At(const std::string& text) const {
        const Op* op = out.FindText(text);
        EXPECT_NE(op, nullptr) << text;
        static const Op none;
        return op ? *op : none;
    }
    std::vector<std::string> Names() const {
        std::vector<std::string> t;
        for (const Op* op : out.TextOps())
            if (op->font == Fonts::fntTimes10 && !op->text.empty()) t.push_back(op->text.substr(0, op->text.find_last_not_of(' ') + 1));
        return t;
    }
};

struct Place {
    std::string text;
    int page;
    float x, y;
};

void ExpectPlaces(const Door& d, const std::vector<Place>& places) {
    for (const Place& w : places) {
        SCOPED_TRACE(w.text);
        const Op& op = d.At(w.text);
        EXPECT_EQ(op.page, w.page);
        EXPECT_NEAR(op.x, w.x, 1e-4);
        EXPECT_NEAR(op.y, w.y, 1e-4);
    }
}

}  // namespace

TEST(RegistrationList, SixtyNamesAColumnThreeColumnsAPageFromTheLabelOffsets) {
    Door d;
    std::vector<MasterRecord> people;
    for (int i = 185; i >= 1; --i) people.push_back(Person(i));
    d.Load(people);
    d.Run(d.e->mnuIntMem);
    const float row = 0.4f;   // a line of the recording surface's Times 10
    ExpectPlaces(d, {
        {"Registration List for Fall Sunday, November 22, 2026", 1, 0.8f, 0.5f},
        {"1001    Person001, Ann", 1, 0.8f, 1.2f},
        {"1060    Person060, Ann", 1, 0.8f, 1.2f + 59 * row},
        {"1061    Person061, Ann", 1, 7.8f, 1.2f},
        {"1121    Person121, Ann", 1, 14.8f, 1.2f},
        {"1180    Person180, Ann", 1, 14.8f, 1.2f + 59 * row},
        {"1181    Person181, Ann", 2, 0.8f, 1.2f},
        {"Registration List  as of Meeting #5 p 2", 2, 0.8f, 25.7f},
    });
    EXPECT_EQ(d.At("Registration List for").font, Fonts::fntArial14);
    EXPECT_EQ(d.out.PagesPrinted(), 2);
    EXPECT_EQ(d.out.FindText(" p 1"), nullptr);   // page 1 has its head instead
}

TEST(RegistrationList, TicketsOfThisMeetingTwentyAColumnWithTheirPageLines) {
    Door d;
    std::vector<MasterRecord> people;
    for (int i = 1; i <= 25; ++i) people.push_back(Person(i, 5));
    people.push_back(Person(26, 4));
    people.push_back(Person(27, 6));
    MasterRecord gone = Person(28, 5);
    gone.WorkerCode = "##";
    people.push_back(gone);
    d.Load(people);
    d.Run(d.e->mnuMemIntTickets);
    const float ticket = 3 * 0.4f;   // the name and two empty lines
    ExpectPlaces(d, {
        {"Tickets for Meeting #5 p 1", 1, 0.8f, 25.0f},
        {"1001    Person001, Ann", 1, 0.8f, 1.2f},
        {"1020    Person020, Ann", 1, 0.8f, 1.2f + 19 * ticket},
        {"1021    Person021, Ann", 1, 7.8f, 1.2f},
    });
    EXPECT_EQ(d.Names().size(), 26u);   // 25 tickets and the page line: not meeting 4 or 6, not deleted
    EXPECT_EQ(d.out.FindText("Registration List"), nullptr);

    // A night nobody came to prints its page line alone.
    d.out.Clear();
    d.c.p.MeetingNumber = 7;
    d.Run(d.e->mnuMemIntTickets);
    EXPECT_EQ(d.Names(), std::vector<std::string>{"Tickets for Meeting #7 p 1"});
    EXPECT_EQ(d.out.PagesPrinted(), 1);
}

TEST(RegistrationList, MembersJoinOnceAndSortByNameOrByNumber) {
    struct Case {
        forms::Menu EditForm::*menu;
        bool members;
        std::vector<std::string> names;
    };
    const std::vector<Case> cases = {
        {&EditForm::mnuIntMem, true, {"1003    Able, Bo", "0999    Able, Cy", "1001    Cole, Al", "0998    Zane, Zed"}},
        {&EditForm::mnunamesbynumber, true,
         {"0998    Zane, Zed", "0999    Able, Cy", "1001    Cole, Al", "1003    Able, Bo"}},
        {&EditForm::mnunamesbynumber, false, {"1001    Cole, Al", "1003    Able, Bo"}},
    };
    for (const Case& k : cases) {
        Door d;
        MasterRecord gone = MakePerson("1002", "Di", "Gone");
        gone.WorkerCode = "##";
        d.Load({MakePerson("1003", "Bo", "Able"), gone, MakePerson("1001", "Al", "Cole")});
        // A member who also registered (1001), a member line twice (0999).
        d.c.p.MemberList = {"", "1001Cole           Al", "0999Able           Cy", "0998Zane           Zed",
                            "0999Other          Name"};
        d.c.p.MemberCount = 4;
        d.Run(d.e->*k.menu, k.members);
        EXPECT_EQ(d.Names(), k.names);
    }
}

TEST(RegistrationList, PrintedOrCancelledTheMasterListComesBackWithThePersonOnScreen) {
    for (bool print : {true, false}) {
        SCOPED_TRACE(print);
        Door d;
        d.Load({MakePerson("0003", "Cy", "Cole"), MakePerson("0001", "Al", "Able"), MakePerson("0002", "Bo", "Bell")});
        d.e->ChgRec_Click(2);
        ASSERT_EQ(d.e->LName.Text(), "Bell");
        d.c.p.SortName = "marked";   // a filter on screen
        d.Run(d.e->mnunamesbynumber, false, print);
        EXPECT_EQ(d.out.Documents(), print ? 1 : 0);
        EXPECT_FALSE(d.out.DocumentOpen());
        EXPECT_EQ(d.c.p.SortName, "alpha");
        EXPECT_EQ(d.c.p.PriorSortName, "marked");
        EXPECT_EQ(d.c.p.IndexCount, 3);
        EXPECT_EQ(d.e->LName.Text(), "Bell");
        EXPECT_EQ(d.c.p.MasterRec.LName.str().substr(0, 4), "Bell");
        EXPECT_EQ(d.e->ActiveControl(), &d.e->RNum);
    }
}
