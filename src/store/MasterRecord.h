#pragma once
// One person: the 461-byte record of the crusade's .dta file.
#include <array>
#include <cstdint>
#include <string>

#include "platform/vb/Strings.h"
#include "store/RecordLayout.h"

// Fixed-width text as the file holds it: assignment pads with blanks or cuts.
template <std::size_t N>
class FixedText {
public:
    FixedText() : s_(N, ' ') {}
    FixedText(const std::string& s) : s_(vb::Fixed(s, N)) {}
    FixedText(const char* s) : s_(vb::Fixed(s, N)) {}
    FixedText& operator=(const std::string& s) { s_ = vb::Fixed(s, N); return *this; }
    FixedText& operator=(const char* s) { s_ = vb::Fixed(s, N); return *this; }
    operator const std::string&() const { return s_; }
    const std::string& str() const { return s_; }
    static constexpr std::size_t Width = N;
    bool operator==(const FixedText&) const = default;
    friend bool operator==(const FixedText& a, const std::string& b) { return a.s_ == b; }
    friend bool operator==(const FixedText& a, const char* b) { return a.s_ == b; }
    // Overwrites one 1-based position (the Mid statement).
    void SetChar(long pos, char c) { if (pos >= 1 && pos <= static_cast<long>(N)) s_[pos - 1] = c; }
    char At(long pos) const { return pos >= 1 && pos <= static_cast<long>(N) ? s_[pos - 1] : ' '; }
private:
    std::string s_;
};

struct MasterRecord {
    static constexpr int Length = static_cast<int>(RecordLayout::Length);

    FixedText<4> RNum;
    FixedText<20> FName;
    FixedText<20> LName;
    FixedText<30> Address;
    FixedText<20> City;
    FixedText<2> State;
    FixedText<10> Zip;
    FixedText<12> Phone;
    FixedText<10> Age;
    FixedText<20> Advertising;
    FixedText<20> RelPref;
    FixedText<1> IntLevel;
    FixedText<12> Visits;
    FixedText<2> WorkerCode;
    FixedText<150> Notes;
    FixedText<40> Attendance;
    FixedText<2> Attend;
    std::int16_t Last = 0;
    std::int16_t MailList = 0;
    FixedText<12> Decisions;
    std::int16_t Class = 0;
    FixedText<8> MapCode;
    FixedText<8> BaptDate;
    std::int16_t IntFlag = 0;
    FixedText<8> BirthDate;
    std::int16_t MarkToVisit = 0;
    FixedText<40> Email;

    bool operator==(const MasterRecord&) const = default;
};

using RecordBytes = std::array<char, MasterRecord::Length>;

// Byte-exact: Decode(Encode(r)) == r and Encode(Decode(b)) == b.
RecordBytes EncodeRecord(const MasterRecord& r);
MasterRecord DecodeRecord(const char* bytes);

// Sets every field to its cleared default; Attendance, Attend, Last and Email
// stay as they are.
void ClearRecord(MasterRecord& r);
