// An export that cannot be written: the operator is told why, and the chosen
// name holds what it held before, never half a file.
#include <gtest/gtest.h>

#include <sched.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>

#include "exchange/ExportCrusade.h"
#include "exchange/Export.h"

namespace fs = std::filesystem;

namespace {

// The test's own mounts live in a mount namespace of this process only, so
// none is left behind whatever happens.
bool PrivateMounts() {
    static const bool ok = ::unshare(CLONE_NEWNS) == 0 && ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
    return ok;
}

bool MountSmallDisk(const std::string& folder, const char* size) {
    return PrivateMounts() && ::mount("tmpfs", folder.c_str(), "tmpfs", 0, size) == 0;
}

// Fills the disk under folder to the last byte.
void Fill(const std::string& folder) {
    std::FILE* f = std::fopen((folder + "/filler").c_str(), "wb");
    ASSERT_NE(f, nullptr);
    std::setvbuf(f, nullptr, _IONBF, 0);
    const std::string block(512, 'x');
    while (std::fwrite(block.data(), 1, block.size(), f) == block.size()) {}
    while (std::fputc('x', f) != EOF) {}
    std::fclose(f);
}

// Makes folder unwritable: by its mode where that binds the test, by a
// read-only file system where the test runs as root.
bool MakeReadOnly(const std::string& folder) {
    if (::geteuid() != 0) return ::chmod(folder.c_str(), 0555) == 0;
    if (!MountSmallDisk(folder, "size=64k")) return false;
    std::ofstream(folder + "/VestMerg.Doc") << "old letter data\r\n";
    return ::mount(nullptr, folder.c_str(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr) == 0;
}

std::vector<std::string> Names(const std::string& folder) {
    std::vector<std::string> v;
    for (const auto& f : fs::directory_iterator(folder)) v.push_back(f.path().filename().string());
    std::sort(v.begin(), v.end());
    return v;
}

TEST(ExportFaults, AFileThatCannotBeWrittenIsToldAndLeavesTheOldFileAsItWas) {
    struct Case {
        const char* what;
        std::string reason;
        std::vector<std::string> left;
    } cases[] = {
        {"read-only folder", "This folder cannot be written to", {"VestMerg.Doc"}},
        {"full disk", "The disk is full.", {"VestMerg.Doc", "filler"}},
        {"missing folder", "This folder does not exist.", {}},
    };
    int skipped = 0;
    for (const Case& c : cases) {
        ExportCrusade x;
        const std::string folder = x.folder / "out";
        fs::create_directories(folder);
        std::string target = folder + "/VestMerg.Doc";
        const std::string what = c.what;
        if (what == "read-only folder") {
            if (::geteuid() != 0) std::ofstream(target) << "old letter data\r\n";
            if (!MakeReadOnly(folder)) {
                ++skipped;
                continue;
            }
        } else if (what == "full disk") {
            if (!MountSmallDisk(folder, "size=64k")) {
                ++skipped;
                continue;
            }
            std::ofstream(target) << "old letter data\r\n";
            Fill(folder);
        } else {
            target = folder + "/gone/VestMerg.Doc";
        }
        x.host.ExpectBox("MailMerge file for", host::vbNo);
        x.host.answers.push_back({target, 1});
        x.host.ExpectBox("The file could not be written:\r\n" + target + "\r\n\r\n" + c.reason, host::vbOK);
        EXPECT_EQ(exchange::MailMerge(x.p), "") << c.what;
        x.host.Verify();
        EXPECT_EQ(Names(folder), c.left) << c.what;
        if (fs::exists(target)) {
            EXPECT_EQ(x.Read(target), "old letter data\r\n") << c.what;
        }
        if (what != "missing folder") ::umount2(folder.c_str(), MNT_DETACH);
        ::chmod(folder.c_str(), 0755);
    }
    if (skipped)
        GTEST_SKIP() << skipped << " case(s) not run: this test needs to mount a small file system (run as root "
                        "with mount rights) to make a full disk, and as root also a read-only one";
}

}  // namespace
