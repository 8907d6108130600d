#include <gtest/gtest.h>

#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <regex>
#include <string>
#include <thread>

#include <QPrinter>
#include <QTemporaryDir>

#include "PdfTools.h"
#include "QtTestApp.h"
#include "platform/qt/QtPrintSurface.h"

extern char** environ;

namespace fs = std::filesystem;

namespace {

// A scheduler of our own on a local socket, with its files in a temporary folder;
// the system's CUPS, if any, is never touched.
class Scheduler {
public:
    explicit Scheduler(const std::string& root) : root_(root), server_(root + "/cups.sock") {
        for (const char* d : {"spool", "cache", "state", "log", "tmp"}) fs::create_directories(root_ + "/" + d);
        fs::permissions(root_ + "/tmp", fs::perms::all | fs::perms::sticky_bit);
        fs::permissions(root_, fs::perms::owner_all | fs::perms::group_read | fs::perms::group_exec |
                                   fs::perms::others_read | fs::perms::others_exec);
        std::ofstream(root_ + "/cupsd.conf") << "Listen " << server_ << R"(
WebInterface No
Browsing No
<Location />
  Order allow,deny
  Allow all
</Location>
<Policy default>
  <Limit All>
    Order deny,allow
  </Limit>
</Policy>
)";
        std::ofstream paths(root_ + "/cups-files.conf");
        paths << "ServerRoot " << root_ << "\nErrorLog " << root_ << "/log/error_log\n";
        for (std::string d : {"RequestRoot spool", "CacheDir cache", "StateDir state", "TempDir tmp"})
            paths << d.insert(d.find(' ') + 1, root_ + "/") << "\n";
        paths.close();
        std::string conf = root_ + "/cupsd.conf", files = root_ + "/cups-files.conf";
        const char* argv[] = {"/usr/sbin/cupsd", "-f", "-c", conf.c_str(), "-s", files.c_str(), nullptr};
        if (posix_spawn(&pid_, argv[0], nullptr, nullptr, const_cast<char**>(argv), environ) != 0) pid_ = 0;
    }
    ~Scheduler() {
        if (pid_ > 0) {
            kill(pid_, SIGTERM);
            waitpid(pid_, nullptr, 0);
        }
    }
    Scheduler(const Scheduler&) = delete;
    Scheduler& operator=(const Scheduler&) = delete;

    bool Ready() const {
        for (int i = 0; i < 100 && pid_ > 0; ++i) {
            if (Shell("lpstat -h " + server_ + " -r").find("is running") != std::string::npos) return true;
            std::this_thread::sleep_for(std::chrono::milliseconds(100));
        }
        return false;
    }
    const std::string& Server() const { return server_; }
    std::string Log() const { return Shell("cat " + root_ + "/log/error_log"); }

private:
    std::string root_;
    std::string server_;
    pid_t pid_ = 0;
};

// Where cups-pdf leaves a job of ours: its "Out" setting, ${HOME}/PDF unless changed.
std::string CupsPdfFolder() {
    std::string out = "${HOME}/PDF";
    std::ifstream conf("/etc/cups/cups-pdf.conf");
    std::smatch m;
    for (std::string line; std::getline(conf, line);)
        if (std::regex_match(line, m, std::regex("\\s*Out\\s+(\\S+)\\s*"))) out = m[1];
    const char* home = std::getenv("HOME");
    return std::regex_replace(out, std::regex("\\$\\{HOME\\}"), home ? home : "");
}

TEST(CupsPrinting, AReportPrintedToACupsPdfQueueComesOutAsItsText) {
    ASSERT_TRUE(fs::exists("/usr/sbin/cupsd") && fs::exists("/usr/lib/cups/backend/cups-pdf"))
        << "CUPS and its PDF printer are not installed: run tools/deps.sh";
    QTemporaryDir dir;
    Scheduler cups(dir.path().toStdString());
    ASSERT_TRUE(cups.Ready()) << cups.Log();
    const std::string queue = "VestrelTest" + std::to_string(getpid());
    // The queue takes PostScript; the cairo converter keeps the text readable
    // in the PDF that comes out, where the default one draws glyphs without names.
    const std::string added = Shell("lpadmin -h " + cups.Server() + " -p " + queue +
                                  " -E -v cups-pdf:/ -P /usr/share/ppd/cups-pdf/CUPS-PDF_opt.ppd -o pdftops-renderer-default=pdftocairo");
    ASSERT_NE(Shell("lpstat -h " + cups.Server() + " -p " + queue).find("enabled"), std::string::npos) << added;

    // Qt finds the queue through the scheduler named here.
    setenv("CUPS_SERVER", cups.Server().c_str(), 1);
    EnsureQtApplication();
    const std::string title = "VestrelCupsProbe" + std::to_string(getpid());
    {
        QtPrintSurface out;
        QPrinter& printer = out.PrinterDevice();
        printer.setPrinterName(QString::fromStdString(queue));
        ASSERT_EQ(printer.outputFormat(), QPrinter::NativeFormat) << "Qt does not see the queue";
        printer.setDocName(QString::fromStdString(title));
        out.SetOutputPrinter();
        out.SetFont(host::Fonts::fntArial14);
        out.SetCurrentX(1.0f);
        out.SetCurrentY(1.0f);
        out.Print("Fall Crusade Master Alphabetical List");
        out.NewPage();
        out.Print("Second page of the list");
        out.EndDoc();
        EXPECT_EQ(out.LastError(), "");
    }

    // cups-pdf names the file after the job's title.
    std::string pdf;
    for (int i = 0; i < 300 && pdf.empty(); ++i) {
        std::error_code ec;
        for (const auto& e : fs::directory_iterator(CupsPdfFolder(), ec))
            if (e.path().filename().string().rfind(title, 0) == 0 && e.path().extension() == ".pdf") pdf = e.path();
        if (pdf.empty()) std::this_thread::sleep_for(std::chrono::milliseconds(100));
    }
    ASSERT_FALSE(pdf.empty()) << "no PDF in " << CupsPdfFolder() << "\n" << cups.Log();
    std::this_thread::sleep_for(std::chrono::milliseconds(300));   // the backend closes the file last
    const std::string text = PdfText(pdf);
    EXPECT_NE(text.find("Fall Crusade Master Alphabetical List"), std::string::npos) << text;
    EXPECT_NE(text.find("Second page of the list"), std::string::npos) << text;
    EXPECT_EQ(PdfPages(pdf), 2);
    fs::remove(pdf);
    Shell("lpadmin -h " + cups.Server() + " -x " + queue);
}

}  // namespace
