#include "store/MasterRecord.h"

#include <cstring>

namespace {

struct Writer {
    char* p;
    template <std::size_t N>
    void text(const FixedText<N>& f) {
        std::memcpy(p, f.str().data(), N);
        p += N;
    }
    void int16(std::int16_t v) {
        RecordLayout::PutInt16(p, v);
        p += 2;
    }
};

struct Reader {
    const char* p;
    template <std::size_t N>
    void text(FixedText<N>& f) {
        f = std::string(p, N);
        p += N;
    }
    void int16(std::int16_t& v) {
        v = RecordLayout::GetInt16(p);
        p += 2;
    }
};

// One list of the fields in file order serves both directions.
template <class IO, class Rec>
void Fields(IO& io, Rec& r) {
    io.text(r.RNum); io.text(r.FName); io.text(r.LName); io.text(r.Address); io.text(r.City);
    io.text(r.State); io.text(r.Zip); io.text(r.Phone); io.text(r.Age); io.text(r.Advertising);
    io.text(r.RelPref); io.text(r.IntLevel); io.text(r.Visits); io.text(r.WorkerCode); io.text(r.Notes);
    io.text(r.Attendance); io.text(r.Attend); io.int16(r.Last); io.int16(r.MailList); io.text(r.Decisions);
    io.int16(r.Class); io.text(r.MapCode); io.text(r.BaptDate); io.int16(r.IntFlag); io.text(r.BirthDate);
    io.int16(r.MarkToVisit); io.text(r.Email);
}

}  // namespace

RecordBytes EncodeRecord(const MasterRecord& r) {
    RecordBytes b{};
    Writer w{b.data()};
    Fields(w, r);
    return b;
}

MasterRecord DecodeRecord(const char* bytes) {
    MasterRecord r;
    Reader rd{bytes};
    Fields(rd, r);
    return r;
}

void ClearRecord(MasterRecord& r) {
    MasterRecord cleared;
    cleared.Advertising = ".......";
    cleared.WorkerCode = "00";
    cleared.Decisions = "---------";
    cleared.Attendance = r.Attendance;
    cleared.Attend = r.Attend;
    cleared.Last = r.Last;
    cleared.Email = r.Email;
    r = cleared;
}
