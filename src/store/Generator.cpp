#include "store/Generator.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <fstream>
#include <random>
#include <vector>

#include "platform/vb/DateTime.h"
#include "platform/vb/Error.h"
#include "platform/vb/Files.h"
#include "platform/vb/Strings.h"
#include "store/Info.h"
#include "store/Members.h"
#include "store/State.h"
#include "store/Records.h"

using namespace vb;

namespace {

// Only mt19937 itself is fixed by the standard; the library's distributions
// and shuffles are not, so every draw goes through these helpers.
class Dice {
public:
    explicit Dice(unsigned seed) : rng_(seed) {}
    // Uniform in lo..hi by multiply and shift.
    int Int(int lo, int hi) {
        auto span = static_cast<std::uint64_t>(hi - lo) + 1;
        auto r = static_cast<std::uint64_t>(rng_() & 0xFFFFFFFFu);
        return lo + static_cast<int>((r * span) >> 32);
    }
    bool Percent(int pct) { return Int(0, 99) < pct; }
    bool PerMille(int pm) { return Int(0, 999) < pm; }
    template <class T, std::size_t N>
    const T& Pick(const T (&a)[N]) { return a[Int(0, static_cast<int>(N) - 1)]; }
    int Weighted(const std::vector<int>& weights) {
        int total = 0;
        for (int w : weights) total += w;
        int r = Int(0, total - 1);
        for (std::size_t i = 0; i < weights.size(); ++i) {
            if (r < weights[i]) return static_cast<int>(i);
            r -= weights[i];
        }
        return static_cast<int>(weights.size()) - 1;
    }
    // Fisher-Yates over 0..n-1.
    std::vector<int> Order(int n) {
        std::vector<int> v(n);
        for (int i = 0; i < n; ++i) v[i] = i;
        for (int i = n - 1; i > 0; --i) std::swap(v[i], v[Int(0, i)]);
        return v;
    }

private:
    std::mt19937 rng_;
};

// Names as the cards give them, in Windows-1252 (an accented letter is one byte).
const char* const MaleNames[] = {
    "James", "John", "Robert", "Michael", "William", "David", "Richard", "Joseph", "Thomas", "Charles",
    "Christopher", "Daniel", "Matthew", "Anthony", "Mark", "Donald", "Steven", "Paul", "Andrew", "Joshua",
    "Kenneth", "Kevin", "Brian", "George", "Timothy", "Ronald", "Edward", "Jason", "Jeffrey", "Ryan",
    "Jacob", "Gary", "Nicholas", "Eric", "Jonathan", "Stephen", "Larry", "Justin", "Scott", "Brandon",
    "Benjamin", "Samuel", "Gregory", "Frank", "Alexander", "Raymond", "Patrick", "Jack", "Dennis", "Jerry",
    "Tyler", "Aaron", "Jos\xE9", "Henry", "Adam", "Douglas", "Nathan", "Peter", "Zachary", "Kyle",
    "Walter", "Harold", "Jeremy", "Ethan", "Carl", "Keith", "Roger", "Gerald", "Willie", "Terry",
    "Ralph", "Lawrence", "Andr\xE9", "Ram\xF3n", "Luis", "Carlos", "Miguel", "Jes\xFAs", "DeShawn", "Tyrone",
    "Darnell", "Earl", "Leroy", "Curtis", "Wayne", "Elijah", "Isaiah"};
const char* const FemaleNames[] = {
    "Mary", "Patricia", "Jennifer", "Linda", "Elizabeth", "Barbara", "Susan", "Jessica", "Sarah", "Karen",
    "Nancy", "Lisa", "Betty", "Margaret", "Sandra", "Ashley", "Kimberly", "Emily", "Donna", "Michelle",
    "Dorothy", "Carol", "Amanda", "Melissa", "Deborah", "Stephanie", "Rebecca", "Sharon", "Laura", "Cynthia",
    "Kathleen", "Amy", "Shirley", "Angela", "Helen", "Anna", "Brenda", "Pamela", "Nicole", "Emma",
    "Samantha", "Katherine", "Christine", "Debra", "Rachel", "Catherine", "Carolyn", "Janet", "Ruth", "Maria",
    "Heather", "Diane", "Virginia", "Julie", "Joyce", "Victoria", "Olivia", "Kelly", "Christina", "Lauren",
    "Joan", "Evelyn", "Judith", "Megan", "Cheryl", "Andrea", "Hannah", "Martha", "Jacqueline", "Frances",
    // A hex escape swallows the hex letters after it: the literal is split so "e" stays a letter.
    "Gloria", "Ann", "Ren\xE9" "e", "Zo\xEB", "Ang\xE9" "lica", "In\xE9s", "Rosa", "Guadalupe", "Latoya", "Ebony",
    "Keisha", "Mae", "Esther", "Naomi", "Lydia", "Ruby", "Hazel", "Mildred", "Bernice", "Gladys"};
const char* const LastNames[] = {
    "Smith", "Johnson", "Williams", "Brown", "Jones", "Garcia", "Miller", "Davis", "Rodriguez", "Martinez",
    "Hern\xE1ndez", "L\xF3pez", "Gonzalez", "Wilson", "Anderson", "Thomas", "Taylor", "Moore", "Jackson", "Martin",
    "Lee", "P\xE9rez", "Thompson", "White", "Harris", "Sanchez", "Clark", "Ramirez", "Lewis", "Robinson",
    "Walker", "Young", "Allen", "King", "Wright", "Scott", "Torres", "Nguyen", "Hill", "Flores",
    "Green", "Adams", "Nelson", "Baker", "Hall", "Rivera", "Campbell", "Mitchell", "Carter", "Roberts",
    "G\xF3mez", "Phillips", "Evans", "Turner", "D\xED" "az", "Parker", "Cruz", "Edwards", "Collins", "Reyes",
    "Stewart", "Morris", "Morales", "Murphy", "Cook", "Rogers", "Gutierrez", "Ortiz", "Morgan", "Cooper",
    "Peterson", "Bailey", "Reed", "Kelly", "Howard", "Ramos", "Kim", "Cox", "Ward", "Richardson",
    "Watson", "Brooks", "Chavez", "Wood", "James", "Bennett", "Gray", "Mendoza", "Ruiz", "Hughes",
    "Price", "Alvarez", "Castillo", "Sanders", "Patel", "Myers", "Long", "Ross", "Foster", "Jimenez",
    "Powell", "Jenkins", "Perry", "Russell", "Sullivan", "Bell", "Coleman", "Butler", "Henderson", "Barnes",
    "Gonzales", "Fisher", "Vasquez", "Simmons", "Romero", "Jordan", "Patterson", "Alexander", "Hamilton", "Graham",
    "Reynolds", "Griffin", "Wallace", "Moreno", "West", "Cole", "Hayes", "Bryant", "Herrera", "Gibson",
    "Ellis", "Tran", "Medina", "Aguilar", "Stevens", "Murray", "Ford", "Castro", "Marshall", "Owens",
    "Harrison", "Fernandez", "McDonald", "Woods", "Washington", "Kennedy", "Wells", "Vargas", "Henry", "Chen",
    "Freeman", "Webb", "Tucker", "Guzman", "Burns", "Crawford", "Olson", "Simpson", "Porter", "Hunter",
    "Gordon", "Mendez", "Silva", "Shaw", "Snyder", "Mason", "Dixon", "Mu\xF1oz", "Hunt", "Hicks",
    "Holmes", "Palmer", "Wagner", "Black", "Robertson", "Boyd", "Rose", "Stone", "Salazar", "Fox",
    "Warren", "Mills", "Meyer", "Rice", "Schmidt", "Garza", "Daniels", "Ferguson", "Nichols", "Stephens",
    "Soto", "Weaver", "Ryan", "Gardner", "Payne", "Grant", "Dunn", "O'Neil", "O'Brien", "O'Connor",
    "D'Angelo", "O'Hara", "M\xFCller", "Pe\xF1" "a", "Nu\xF1" "ez", "Kowalski", "Schultz", "Yoder", "DeLuca",
    "Van Dyke"};

const char* const Streets[] = {
    "Oak", "Maple", "Elm", "Pine", "Cedar", "Walnut", "Main", "Church", "Park", "Lake", "Hill", "Washington",
    "Lincoln", "Jefferson", "Madison", "Jackson", "Franklin", "Highland", "Sunset", "Meadow", "Spring", "River",
    "Cherry", "Willow", "Dogwood", "Magnolia", "Chestnut", "Hickory", "Mulberry", "Forest", "Ridge", "Valley",
    "Orchard", "Grove", "Mill", "College", "Center", "Broad", "Market", "Union", "Liberty", "Prospect",
    "Fairview", "Woodland", "Lakeview", "Birch", "Poplar", "Sycamore", "Laurel", "Holly", "Cardinal",
    "Glenwood", "Briarwood", "Kingston", "Cambridge", "Oxford", "1st", "2nd", "3rd", "4th", "5th", "6th",
    "7th", "8th", "9th", "10th", "11th", "12th"};
const char* const StreetKinds[] = {"St", "St", "St", "Ave", "Ave", "Rd", "Dr", "Dr", "Ln", "Ct", "Cir", "Blvd",
                                   "Way", "Pl"};
const char* const Directions[] = {"N", "S", "E", "W", "NE", "NW", "SE", "SW"};

const char* const NoteLines[] = {
    "Wants Bible studies", "Prefers Spanish literature", "Hard of hearing - seat near front",
    "Works nights - call after 4pm", "Came with a neighbor", "Needs a ride to the meetings",
    "Do not call on Sunday", "Husband not interested", "Interested in the health classes",
    "Former member - wants to come back", "Asked for prayer for her son", "Has small children - needs child care",
    "Retired teacher", "Watches on video most nights", "Dog in yard - use side gate", "Moved here from Ohio",
    "Asked about the Sabbath", "Wants the stop smoking class", "Lives with daughter", "Speaks Spanish only"};

struct Place {
    const char* zip;
    const char* city;
};
struct Region {
    const char* state;
    const char* areaCode;
    std::vector<Place> places;   // the main city first
};

const std::vector<Region>& Regions() {
    static const std::vector<Region> regions = {
        {"IL", "217", {{"62701", "Springfield"}, {"62702", "Springfield"}, {"62703", "Springfield"},
                       {"62704", "Springfield"}, {"62707", "Springfield"}, {"62711", "Springfield"},
                       {"62712", "Springfield"}, {"62629", "Chatham"}, {"62563", "Rochester"},
                       {"62684", "Sherman"}, {"62561", "Riverton"}, {"62615", "Auburn"}, {"62675", "Petersburg"},
                       {"62558", "Pawnee"}, {"62693", "Williamsville"}, {"62670", "New Berlin"},
                       {"62613", "Athens"}, {"62530", "Divernon"}, {"62677", "Pleasant Plains"}}},
        {"TN", "423", {{"37402", "Chattanooga"}, {"37403", "Chattanooga"}, {"37404", "Chattanooga"},
                       {"37405", "Chattanooga"}, {"37406", "Chattanooga"}, {"37407", "Chattanooga"},
                       {"37409", "Chattanooga"}, {"37410", "Chattanooga"}, {"37411", "Chattanooga"},
                       {"37412", "Chattanooga"}, {"37415", "Chattanooga"}, {"37416", "Chattanooga"},
                       {"37421", "Chattanooga"}, {"37315", "Collegedale"}, {"37363", "Ooltewah"},
                       {"37343", "Hixson"}, {"37379", "Soddy Daisy"}, {"37377", "Signal Mountain"},
                       {"37302", "Apison"}, {"37341", "Harrison"}}},
        {"TX", "903", {{"75701", "Tyler"}, {"75702", "Tyler"}, {"75703", "Tyler"}, {"75704", "Tyler"},
                       {"75707", "Tyler"}, {"75708", "Tyler"}, {"75709", "Tyler"}, {"75791", "Whitehouse"},
                       {"75771", "Lindale"}, {"75757", "Bullard"}, {"75762", "Flint"}, {"75758", "Chandler"},
                       {"75789", "Troup"}, {"75750", "Arp"}, {"75792", "Winona"}, {"75790", "Van"},
                       {"75766", "Jacksonville"}, {"75662", "Kilgore"}}},
        {"CA", "559", {{"93701", "Fresno"}, {"93702", "Fresno"}, {"93703", "Fresno"}, {"93704", "Fresno"},
                       {"93705", "Fresno"}, {"93706", "Fresno"}, {"93710", "Fresno"}, {"93711", "Fresno"},
                       {"93720", "Fresno"}, {"93722", "Fresno"}, {"93726", "Fresno"}, {"93727", "Fresno"},
                       {"93728", "Fresno"}, {"93611", "Clovis"}, {"93612", "Clovis"}, {"93657", "Sanger"},
                       {"93662", "Selma"}, {"93630", "Kerman"}, {"93625", "Fowler"}, {"93654", "Reedley"},
                       {"93631", "Kingsburg"}}},
        {"NC", "704", {{"28202", "Charlotte"}, {"28205", "Charlotte"}, {"28208", "Charlotte"},
                       {"28210", "Charlotte"}, {"28211", "Charlotte"}, {"28212", "Charlotte"},
                       {"28213", "Charlotte"}, {"28214", "Charlotte"}, {"28215", "Charlotte"},
                       {"28216", "Charlotte"}, {"28217", "Charlotte"}, {"28226", "Charlotte"},
                       {"28227", "Charlotte"}, {"28105", "Matthews"}, {"28078", "Huntersville"},
                       {"28134", "Pineville"}, {"28031", "Cornelius"}, {"28025", "Concord"},
                       {"28052", "Gastonia"}}},
    };
    return regions;
}

// Decision n may be made once the sermon that calls for it has been preached:
// codes C S K P B T A D U.
constexpr std::array<int, 10> DecisionFrom{0, 4, 8, 8, 8, 10, 3, 16, 15, 19};

std::string LastDigit(int m) { return Right(CStr(m), 1); }
std::string Two(int n) { return Right("0" + CStr(n), 2); }
std::string Four(long n) { return Right("0000" + CStr(n), 4); }

// A zip of the table with the team that visits it.
struct ZipEntry {
    Place place;
    int team = 0;
    int weight = 1;
    int count = 0;
};

// One person as keyed, before the number is drawn.
struct Card {
    MasterRecord r;
    std::vector<bool> attended;   // 1..meetings
    int zip = -1;                 // index in the zip table; -1 for "NoZip"
};

class CrusadeMaker {
public:
    CrusadeMaker(ProgramState& p, unsigned seed, int meetings) : p_(p), dice_(seed), meetings_(meetings) {}

    int DrawMeetings() {
        // Most crusades are looked at somewhere in the middle of the series.
        return dice_.Percent(70) ? dice_.Int(12, 30) : dice_.Int(1, 40);
    }
    void SetMeetings(int m) { meetings_ = m; }

    void Schedule() {
        DateTime d{2024 + dice_.Int(0, 2), dice_.Int(1, 12), dice_.Int(1, 28)};
        while (d.weekday() != 6) d = DateAddDays(d, 1);   // opening night is a Friday
        // Five meetings a week: Friday, Sabbath morning, Sunday, Tuesday, Wednesday.
        static const int offsets[] = {0, 1, 2, 4, 5};
        for (int m = 1; m <= 40; ++m) {
            int k = m - 1;
            dates_[m] = DateAddDays(d, (k / 5) * 7 + offsets[k % 5]);
            if (k % 5 == 1) {
                sabbaths_.push_back(m);
                if (m >= 20 && m <= meetings_) baptisms_.push_back(m);
            }
        }
        p_.CrusadeDate = FormatDate(d, "Short Date");
        for (int i = 1; i <= 4; ++i) p_.SabAM[i] = sabbaths_[i - 1];
    }

    void Teams(int people) {
        teams_ = std::min(40, std::max(3, people / 60 + dice_.Int(0, 3)));
        std::vector<int> leaders = dice_.Order(static_cast<int>(std::size(LastNames)));
        for (int t = 1; t <= teams_; ++t)
            p_.TeamNames[t] = std::string(LastNames[leaders[t - 1]]) + ":555-01" + Two(dice_.Int(0, 99));
    }

    void ZipTable() {
        region_ = &Regions()[dice_.Int(0, static_cast<int>(Regions().size()) - 1)];
        int available = static_cast<int>(region_->places.size());
        int wanted = std::min(available, std::max(5, teams_ + dice_.Int(1, 4)));
        std::vector<int> order = dice_.Order(available);
        std::vector<bool> taken(available, false);
        for (int i = 0; i < wanted; ++i) taken[order[i]] = true;
        const std::string mainCity = region_->places[0].city;
        for (int i = 0; i < available; ++i) {
            if (!taken[i]) continue;
            ZipEntry z;
            z.place = region_->places[i];
            z.weight = z.place.city == mainCity ? 4 : 2;
            zips_.push_back(z);
        }
        // Teams go round the zips in a random order; one outlying zip may be left unassigned.
        std::vector<int> round = dice_.Order(static_cast<int>(zips_.size()));
        for (std::size_t k = 0; k < round.size(); ++k) zips_[round[k]].team = static_cast<int>(k % teams_) + 1;
        if (static_cast<int>(zips_.size()) > teams_ + 1 && dice_.Percent(50)) {
            zips_[round.back()].team = 0;
            zips_[round.back()].weight = 1;
        }
    }

    // Households register together on one night and sit together after.
    void Households(int people) {
        std::vector<int> weights;
        for (int m = 1; m <= meetings_; ++m)
            weights.push_back(m == 1 ? 100 : m == 2 ? 40 : m == 3 ? 30 : std::max(3, 24 - m));
        std::vector<std::vector<Card>> byNight(meetings_ + 1);
        int made = 0;
        while (made < people) {
            int night = dice_.Weighted(weights) + 1;
            int size = std::min(people - made, 1 + dice_.Weighted({58, 30, 8, 4}));
            std::vector<Card> family = Household(night, size);
            made += size;
            for (Card& c : family) byNight[night].push_back(std::move(c));
        }
        for (auto& night : byNight)
            for (Card& c : night) cards_.push_back(std::move(c));
    }

    void Number(int people) {
        // Numbers run down from 9999, one per card in the order keyed.
        for (int i = 0; i < people; ++i) cards_[i].r.RNum = Four(9998 - i);
        p_.LastRNum = 9999 - people;
        p_.NumberDirection = "DOWN";
    }

    void DeleteSome() {
        // Card 1 is the opening night's first person and stays.
        for (std::size_t i = 1; i < cards_.size(); ++i) {
            if (!dice_.PerMille(20)) continue;
            MasterRecord& r = cards_[i].r;
            r.WorkerCode = "##";
            if (dice_.Percent(40)) moved_.push_back(r.RNum.str() + Fixed(r.LName, 15) + Fixed(r.FName, 15));
        }
    }

    // Somebody who is still on the list came to the last meeting held.
    void CoverLastMeeting() {
        for (const Card& c : cards_)
            if (c.r.WorkerCode != "##" && c.attended[meetings_]) return;
        for (Card& c : cards_) {
            if (c.r.WorkerCode == "##") continue;
            c.attended[meetings_] = true;
            c.r.Attendance.SetChar(meetings_, LastDigit(meetings_)[0]);
            Count(c.r);
            return;
        }
    }

    void CountZips() {
        for (const Card& c : cards_)
            if (c.zip >= 0 && c.r.WorkerCode != "##") ++zips_[c.zip].count;
        p_.ZipList.fill("");
        p_.ZipList[0] = "0";
        p_.ZipCount = static_cast<int>(zips_.size());
        for (int i = 0; i < p_.ZipCount; ++i) {
            const ZipEntry& z = zips_[i];
            p_.ZipList[i + 1] = Fixed(z.place.zip, 10) + region_->state + Two(z.team) + Fixed(z.place.city, 15) +
                                Right("    " + CStr(z.count), 4);
        }
    }

    void Members(int people) {
        // Members who never held an interest card were given the next registration
        // numbers, so no number is both a member's and a person's; a full file
        // leaves no number for them.
        int own = std::min(150, std::max(3, people / 25)) + dice_.Int(0, 5);
        own = std::min(own, static_cast<int>(p_.LastRNum));
        p_.MemberList.assign(1, std::string());
        for (int i = 1; i <= own; ++i) {
            bool man = dice_.Percent(45);
            std::string first = man ? dice_.Pick(MaleNames) : dice_.Pick(FemaleNames);
            p_.MemberList.push_back(Four(p_.LastRNum - i) + Fixed(dice_.Pick(LastNames), 15) + Fixed(first, 15));
        }
        p_.LastRNum -= own;
        p_.MemberList.insert(p_.MemberList.end(), moved_.begin(), moved_.end());
        p_.MemberCount = static_cast<int>(p_.MemberList.size()) - 1;
    }

    void WriteRecords(const std::string& path) const {
        std::string bytes;
        bytes.reserve(cards_.size() * MasterRecord::Length);
        for (const Card& c : cards_) {
            RecordBytes b = EncodeRecord(c.r);
            bytes.append(b.data(), b.size());
        }
        std::ofstream out(path, std::ios::binary | std::ios::trunc);
        if (!out) Raise(DirExists(FolderOf(path)) ? errPathFileAccess : errPathNotFound);
        out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        out.close();
        if (!out) Raise(errDeviceIO);
    }

private:
    std::vector<Card> Household(int night, int size) {
        std::string last = dice_.Pick(LastNames);
        bool headIsMan = dice_.Percent(45);
        int headAge = 2 + dice_.Weighted({10, 14, 18, 20, 17, 10});   // 20-29 .. 70+
        bool ageKnown = !dice_.Percent(6);

        Card head;
        MasterRecord& r = head.r;
        ClearRecord(r);
        Address(head);
        r.Phone = dice_.Percent(9) ? std::string("Unknown")
                  : dice_.Percent(10) ? std::string(region_->areaCode) + "-555-01" + Two(dice_.Int(0, 99))
                                      : "555-01" + Two(dice_.Int(0, 99));
        r.MailList = Trim(r.Address) == "Address Unknown" || dice_.Percent(5) ? 0 : -1;
        r.RelPref = p_.ReligionList[1 + dice_.Weighted({4, 22, 15, 8, 3, 6, 2, 4, 10, 10, 10, 3, 8, 4})];
        r.Advertising = Advertising(night);
        head.attended = Attendance(night);

        std::vector<Card> family;
        for (int k = 0; k < size; ++k) {
            Card c = head;
            bool man = k == 0 ? headIsMan : k == 1 ? !headIsMan : dice_.Percent(50);
            int age = headAge;
            if (k == 1) age = std::min(7, std::max(2, headAge + dice_.Int(-1, 1)));
            if (k >= 2) age = headAge >= 4 ? 1 : dice_.Int(2, 7);   // a teenager, or another adult
            c.r.FName = man ? dice_.Pick(MaleNames) : dice_.Pick(FemaleNames);
            c.r.LName = k == 1 && dice_.Percent(12) ? std::string(dice_.Pick(LastNames)) : last;
            c.r.Age = ageKnown ? p_.AgeGroups[age] : std::string("NIF");
            if (k > 0) {
                c.r.MailList = 0;   // one mailing to an address
                if (!dice_.Percent(70)) c.r.Advertising = Advertising(night);
                if (dice_.Percent(20)) c.r.RelPref = p_.ReligionList[1 + dice_.Int(0, 13)];
                for (int m = night + 1; m <= meetings_; ++m)
                    if (dice_.Percent(8)) c.attended[m] = !c.attended[m];
            }
            Person(c, night, age, ageKnown, k == 0);
            family.push_back(std::move(c));
        }
        return family;
    }

    void Address(Card& c) {
        MasterRecord& r = c.r;
        std::vector<int> weights;
        for (const ZipEntry& z : zips_) weights.push_back(z.weight);
        c.zip = dice_.Weighted(weights);
        const Place& place = zips_[c.zip].place;
        r.City = place.city;
        r.State = region_->state;
        r.Zip = place.zip;
        r.WorkerCode = Two(zips_[c.zip].team);
        int roll = dice_.Int(0, 999);
        if (roll < 15) {
            r.Address = "Address Unknown";
            if (roll < 8) {
                // Nothing but a name: the zip box was left empty.
                c.zip = -1;
                r.Zip = "NoZip";
                r.City = region_->places[0].city;
                r.WorkerCode = "00";
                return;
            }
        } else if (roll < 55) {
            r.Address = "PO Box " + CStr(dice_.Int(1, 2999));
        } else {
            std::string a = CStr(dice_.Percent(80) ? dice_.Int(100, 4999) : dice_.Int(1, 19999)) + " ";
            if (dice_.Percent(8)) a += std::string(dice_.Pick(Directions)) + " ";
            a += dice_.Pick(Streets);
            a += std::string(" ") + dice_.Pick(StreetKinds);
            if (dice_.Percent(10)) {
                a += " #" + CStr(dice_.Int(1, 24));
                if (dice_.Percent(40)) a += std::string(1, static_cast<char>('A' + dice_.Int(0, 3)));
            }
            r.Address = a;
        }
        // Teams are mostly the zip's; some cards were given to a team by hand.
        int hand = dice_.Int(0, 99);
        if (hand < 6) r.WorkerCode = "00";
        else if (hand < 14) r.WorkerCode = Two(dice_.Int(1, teams_));
    }

    std::string Advertising(int night) {
        std::string flags = ".......", tail;
        static const int percents[] = {12, 45, 8, 6, 10, 6, 25};   // N M R T P O I
        for (int i = 0; i < 7; ++i)
            if (dice_.Percent(percents[i])) flags[i] = "NMRTPOI"[i];
        if (flags == "......." && dice_.Percent(85)) {
            int i = dice_.Weighted({12, 45, 8, 6, 10, 6, 25});
            flags[i] = "NMRTPOI"[i];
        }
        if (flags[6] == 'I') {
            if (night == 1) flags[4] = 'P';   // an invitation before opening night is pre-meeting interest
            if (dice_.Percent(65)) tail = "-" + Left(dice_.Pick(LastNames), 12);
        }
        return flags + tail;
    }

    // The nights after registration: a steady attender comes most nights, and
    // some stop coming altogether.
    std::vector<bool> Attendance(int night) {
        std::vector<bool> a(41, false);
        a[night] = true;
        int faithful = dice_.Int(150, 950);
        int stop = dice_.Percent(30) ? dice_.Int(night, meetings_) : meetings_;
        for (int m = night + 1; m <= stop; ++m) a[m] = dice_.PerMille(faithful);
        return a;
    }

    void Person(Card& c, int night, int age, bool ageKnown, bool head) {
        MasterRecord& r = c.r;
        std::string marks(40, '-');
        int count = 0;
        for (int m = 1; m <= meetings_; ++m) {
            if (!c.attended[m]) continue;
            // The card was filled in the hall; later nights may be watched on video.
            marks[m - 1] = m > night && dice_.PerMille(15) ? 'V' : LastDigit(m)[0];
            ++count;
        }
        // How much of what the person could have heard they did hear, per mille.
        int heard = count * 1000 / (meetings_ - night + 1);

        std::string decisions(9, '-');
        auto attendedFrom = [&](int from) {
            for (int m = std::max(from, 1); m <= meetings_; ++m)
                if (c.attended[m]) return true;
            return false;
        };
        auto decide = [&](int n, int percent) {
            if (attendedFrom(DecisionFrom[n]) && dice_.PerMille(percent * heard / 100))
                decisions[n - 1] = p_.DecisionCodes[n][0];
        };
        decide(1, 50);
        decide(2, 35);
        if (decisions[1] != '-') decide(3, 60);
        if (decisions[1] != '-' && decisions[2] == '-') decide(4, 30);
        if (decisions[0] != '-') decide(5, 45);
        decide(6, 5);
        decide(7, 30);
        decide(8, 25);
        if (decisions[4] != '-') decide(9, 70);
        // A decision card handed in with the ticket puts its letter in place of the night's digit.
        for (int n = 1; n <= 9; ++n) {
            if (decisions[n - 1] == '-' || !dice_.Percent(50)) continue;
            std::vector<int> nights;
            for (int m = std::max(DecisionFrom[n], night + 1); m <= meetings_; ++m)
                if (marks[m - 1] >= '0' && marks[m - 1] <= '9') nights.push_back(m);
            if (nights.empty()) continue;
            marks[nights[dice_.Int(0, static_cast<int>(nights.size()) - 1)] - 1] = decisions[n - 1];
        }
        r.Attendance = marks;
        r.Decisions = decisions;
        Count(r);

        bool unite = decisions[8] != '-';
        bool recent = night >= meetings_ - 1;
        std::string level;
        if (unite && decisions[4] != '-' && !baptisms_.empty() && dice_.Percent(75)) {
            level = "G";
            DateTime d = dates_[baptisms_[dice_.Int(0, static_cast<int>(baptisms_.size()) - 1)]];
            r.BaptDate = FormatDate(d, "mm/dd/yy");
        } else if (unite) {
            level = dice_.Percent(60) ? "A" : "B";
        } else if (decisions[4] != '-' || (decisions[1] != '-' && decisions[2] != '-')) {
            level = std::string(1, "AAAAABBBBC"[dice_.Int(0, 9)]);
        } else if (recent && decisions == "---------") {
            level = dice_.Percent(70) ? "" : "C";
        } else if (heard >= 700) {
            level = dice_.Percent(60) ? "B" : "C";
        } else if (heard >= 400) {
            level = dice_.Percent(60) ? "C" : "D";
        } else {
            level = std::string(1, "CCCDDDEF  "[dice_.Int(0, 9)]);
        }
        if (level != "G" && dice_.Percent(8)) level = "";
        r.IntLevel = level;
        r.Class = level == "G" ? (dice_.Percent(90) ? 1 : 0) : level == "A" && dice_.Percent(40) ? 1 : 0;

        r.Visits = Visits(r, night, level);
        if (dice_.Percent(8)) r.Notes = dice_.Pick(NoteLines);
        // Save-and-New leaves "xxxx" until somebody looks the person up on the map.
        int map = dice_.Int(0, 99);
        if (map < 75) {
            r.MapCode = "xxxx";
        } else if (map < 90) {
            std::string code = CStr(dice_.Int(1, 60)) + "-";
            code += static_cast<char>('A' + dice_.Int(0, 7));
            code += CStr(dice_.Int(1, 9));
            r.MapCode = code;
        }
        r.IntFlag = night < meetings_ && dice_.Percent(90) ? -1 : 0;
        if (ageKnown && dice_.Percent(10)) {
            int years = age == 7 ? dice_.Int(70, 89) : age * 10 + dice_.Int(0, 9);
            DateTime born{dates_[1].year - years, dice_.Int(1, 12), dice_.Int(1, 28)};
            r.BirthDate = FormatDate(born, "mm/dd/yy");
        }
        r.MarkToVisit = dice_.Percent(4) ? -1 : 0;
        if (head ? dice_.Percent(15) : dice_.Percent(5)) r.Email = Email(r);
    }

    std::string Visits(const MasterRecord& r, int night, const std::string& level) {
        if (r.WorkerCode == "00" || night > meetings_ - 2) return "";
        int percent = level == "G" || level == "A" ? 90
                      : level == "B"                 ? 80
                      : level == "C"                 ? 60
                      : Trim(level).empty()          ? 20
                                                     : 35;
        if (!dice_.Percent(percent)) return "";
        int entries = dice_.Int(1, 4);
        std::vector<int> when;
        for (int i = 0; i < entries; ++i) when.push_back(dice_.Int(night, meetings_));
        for (std::size_t i = 1; i < when.size(); ++i)   // oldest first
            for (std::size_t j = i; j > 0 && when[j - 1] > when[j]; --j) std::swap(when[j - 1], when[j]);
        std::string v;
        for (int i = 0; i < entries; ++i) {
            if (i == entries - 1 && dice_.Percent(10)) {
                v += "A" + CStr(dice_.Int(1, 6));   // day of the week, then the hour
                v += CStr(dice_.Int(1, 9));
            } else {
                v += "hhhhhpplllm"[dice_.Int(0, 10)];
                v += Two(when[i]);
            }
        }
        return v;
    }

    std::string Email(const MasterRecord& r) {
        auto plain = [](const std::string& s) {
            std::string out;
            for (char ch : s) {
                auto u = static_cast<unsigned char>(ch);
                if (u == 0xE1) out += 'a';
                else if (u == 0xE9 || u == 0xEB) out += 'e';
                else if (u == 0xED) out += 'i';
                else if (u == 0xF3) out += 'o';
                else if (u == 0xFA || u == 0xFC) out += 'u';
                else if (u == 0xF1) out += 'n';
                else if ((ch >= 'a' && ch <= 'z') || (ch >= 'A' && ch <= 'Z')) out += LCaseChar(ch);
            }
            return out;
        };
        std::string first = plain(Trim(r.FName)), last = plain(Trim(r.LName));
        static const char* const domains[] = {"example.com", "example.net", "example.org"};
        std::string user = dice_.Percent(50) ? first + "." + last : Left(first, 1) + last + CStr(dice_.Int(1, 99));
        return user + "@" + dice_.Pick(domains);
    }

    static void Count(MasterRecord& r) {
        int count = 0, last = 0;
        for (int m = 1; m <= 40; ++m)
            if (r.Attendance.At(m) != '-') {
                ++count;
                last = m;
            }
        r.Attend = CStr(count);
        r.Last = static_cast<std::int16_t>(last);
    }

    ProgramState& p_;
    Dice dice_;
    int meetings_;
    int teams_ = 3;
    const Region* region_ = nullptr;
    std::array<DateTime, 41> dates_{};
    std::vector<int> sabbaths_, baptisms_;
    std::vector<ZipEntry> zips_;
    std::vector<Card> cards_;
    std::vector<std::string> moved_;
};

}  // namespace

void GenerateCrusade(ProgramState& p, const std::string& dtaPath, int people, unsigned seed, int meetingsHeld,
                     const std::string& crusadeName) {
    people = std::min(9999, std::max(0, people));
    p.File1.Close();
    p.DataFile = dtaPath;
    p.DataFolder = FolderOf(dtaPath);
    DefaultLists(p);
    // As a load leaves them (LoadInfo puts these over every crusade's file).
    p.AgeGroups[0] = "NIF";
    p.AgeGroups[6] = "60-69";
    p.DecisionNames[1] = "Accept Christ";
    p.DecisionNames[2] = "Accept Sabbath";
    p.DecisionNames[9] = "Unite with Church";
    std::string file = FileNameOf(dtaPath);
    p.CrusadeName = crusadeName.empty() ? Left(file, static_cast<long>(file.size()) - 4) : crusadeName;
    p.CanadaSorter = false;
    p.BackupPath.clear();
    p.FilterTotalAttend = 1;
    p.PrintCutOff = 0;

    CrusadeMaker maker(p, seed, 1);
    int meetings = meetingsHeld >= 1 ? std::min(40, meetingsHeld) : maker.DrawMeetings();
    maker.SetMeetings(meetings);
    p.MeetingNumber = meetings;
    maker.Schedule();
    maker.Teams(people);
    maker.ZipTable();
    maker.Households(people);
    maker.Number(people);
    maker.DeleteSome();
    if (people > 0) maker.CoverLastMeeting();
    maker.CountZips();
    maker.Members(people);

    maker.WriteRecords(dtaPath);
    if (!SaveInfo(p)) return;
    SaveZips(p);
    SaveMembers(p);
}
