#include "store/RecordLayout.h"

#include "platform/vb/Error.h"
#include "platform/vb/Files.h"
#include "store/MasterRecord.h"

namespace RecordLayout {

namespace {
void CheckLength(const vb::RandomFile& f) {
    if (f.RecordLength() != static_cast<int>(Length)) vb::Raise(vb::errBadRecordLength);
}
}  // namespace

bool Read(vb::RandomFile& f, long n, MasterRecord& r) {
    CheckLength(f);
    r = MasterRecord();
    char buf[Length];
    if (!f.Get(n, buf)) return false;
    r = DecodeRecord(buf);
    return true;
}

void Write(vb::RandomFile& f, long n, const MasterRecord& r) {
    CheckLength(f);
    RecordBytes b = EncodeRecord(r);
    f.Put(n, b.data());
}

}  // namespace RecordLayout
