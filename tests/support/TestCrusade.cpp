#include "edit/Navigate.h"
#include "store/Info.h"
#include "store/Records.h"
#include "store/SortIndex.h"
#include "support/TestCrusade.h"

#include <atomic>
#include <fstream>
#include <iterator>
#include <unistd.h>

namespace fs = std::filesystem;

TempFolder::TempFolder() {
    static std::atomic<int> counter{0};
    path_ = (fs::temp_directory_path() / ("vestrel-test-" + std::to_string(::getpid()) + "-" +
                                          std::to_string(counter++))).string();
    fs::remove_all(path_);
    fs::create_directories(path_);
}

TempFolder::~TempFolder() {
    std::error_code ec;
    fs::remove_all(path_, ec);
}

MasterRecord MakePerson(const std::string& rnum, const std::string& first, const std::string& last,
                        const std::string& attendance) {
    MasterRecord r;
    ClearRecord(r);
    r.RNum = rnum;
    r.FName = first;
    r.LName = last;
    r.Address = "12 Oak St", r.City = "Springfield", r.State = "IL", r.Zip = "62701";
    r.Phone = "555-0100", r.Age = "30-39", r.RelPref = "Baptist";
    r.Attendance = attendance;
    r.Decisions = "---------";
    r.MailList = -1;
    return r;
}

TestCrusade::TestCrusade(const std::string& name)
    : appPath(folder.path() + "/Vestrel"), dataFile(appPath + "/data/" + name + ".dta"), p(host, appPath) {
    fs::create_directories(appPath + "/data");
    p.DataFile = dataFile;
    p.DataFolder = appPath + "/data";
}

TestCrusade::~TestCrusade() { p.File1.Close(); }

void TestCrusade::WriteRecords(const std::vector<MasterRecord>& records) {
    std::ofstream out(dataFile, std::ios::binary | std::ios::trunc);
    for (const MasterRecord& r : records) {
        RecordBytes b = EncodeRecord(r);
        out.write(b.data(), b.size());
    }
}

MasterRecord TestCrusade::ReadRecord(long n) const {
    std::ifstream in(dataFile, std::ios::binary);
    in.seekg((n - 1) * MasterRecord::Length);
    RecordBytes b{};
    in.read(b.data(), b.size());
    return DecodeRecord(b.data());
}

long TestCrusade::RecordsOnDisk() const {
    return static_cast<long>(fs::file_size(dataFile) / MasterRecord::Length);
}

std::string TestCrusade::ReadFile(const std::string& path) const {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

void TestCrusade::WriteFile(const std::string& path, const std::string& bytes) const {
    std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;
}

void TestCrusade::Open() {
    LoadInfo(p);
    OpenRecordFile(p);
    FullLoad(p);
}

EditForm& TestCrusade::ShowOnEditScreen(const std::vector<MasterRecord>& people) {
    WriteRecords(people);
    p.Loaded = true;
    Open();
    p.CrusadeName = "Fall";
    p.SoundOn = true;
    EditForm& e = p.Edit();
    host.sounds.clear();   // the screen's own sounds are not the test's
    return e;
}
