#include <gtest/gtest.h>
#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <atomic>
#include <thread>

#include "exchange/Update.h"
#include "support/TestCrusade.h"

namespace {

// A web server on loopback that answers every GET with one body, or, when
// silent, takes the connection and never answers. It stops with the test.
class LoopbackServer {
public:
    LoopbackServer(std::string body, bool silent) : body_(std::move(body)), silent_(silent) {
        fd_ = ::socket(AF_INET, SOCK_STREAM, 0);
        sockaddr_in a{};
        a.sin_family = AF_INET;
        a.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t len = sizeof a;
        ::bind(fd_, reinterpret_cast<sockaddr*>(&a), len);
        ::listen(fd_, 4);
        ::getsockname(fd_, reinterpret_cast<sockaddr*>(&a), &len);
        port_ = ntohs(a.sin_port);
        thread_ = std::thread([this] { Serve(); });
    }
    ~LoopbackServer() {
        stop_ = true;
        thread_.join();
        ::close(fd_);
    }
    std::string Url() const { return "http://127.0.0.1:" + std::to_string(port_); }
    std::atomic<int> requests{0};

private:
    void Serve() {
        while (!stop_) {
            pollfd p{fd_, POLLIN, 0};
            if (::poll(&p, 1, 50) <= 0) continue;
            const int c = ::accept(fd_, nullptr, nullptr);
            if (c < 0) continue;
            ++requests;
            char buf[2048];
            (void)::recv(c, buf, sizeof buf, 0);
            if (silent_) {
                while (!stop_) ::usleep(20000);
            } else {
                const std::string reply = "HTTP/1.0 200 OK\r\nContent-Type: text/plain\r\nContent-Length: " +
                                          std::to_string(body_.size()) + "\r\n\r\n" + body_;
                (void)::send(c, reply.data(), reply.size(), MSG_NOSIGNAL);
            }
            ::close(c);
        }
    }
    std::string body_;
    bool silent_;
    int fd_ = -1;
    int port_ = 0;
    std::atomic<bool> stop_{false};
    std::thread thread_;
};

const char* const Latest =
    "The lastest update available is:            02.05.00\r\nYour current version of Vestrel is:      02.05.00\r\n"
    "You have the latest version of Vestrel\r\nThere are no new updates available for your Version of Vestrel.";

}  // namespace

// The program is 02.05.00. The version file is read by position: characters 4-5
// the minor version, the last two the revision; a newer one is not announced.
TEST(UpdateCheck, BoxesForTheServersAnswer) {
    ASSERT_EQ(5, VersionMinor);
    ASSERT_EQ(0, VersionRevision);
    struct Case {
        const char* what;
        std::string body;
        bool silent;
        std::string box;   // empty: nothing is shown after the first box
    } cases[] = {
        {"equal", "02.05.00\r\n", false, Latest},
        {"older minor", "02.04.00", false, ""},
        {"newer revision", "02.05.01", false, ""},
        {"empty answer", "", false, "is not a version number"},
        {"HTML page", "<html><body>Not here</body></html>", false, "is not a version number"},
        {"too short", "02.", false, "is not a version number"},
        {"never answers", "", true,
         "Vestrel was unable to find an internet connection.Insure that you are connected to the internet and try "
         "Update Vestrel again."},
    };
    for (const Case& k : cases) {
        SCOPED_TRACE(k.what);
        TestCrusade c;
        LoopbackServer server(k.body, k.silent);
        c.host.webTimeoutMs = 300;
        c.host.settings["MDINote/Update/Host"] = server.Url();
        c.host.ExpectBox("In order to automatically update Vestrel, your computer must\r\nbe connected", host::vbOK,
                         "Vestrel Update", host::vbOKCancel | host::vbExclamation);
        if (!k.box.empty()) c.host.ExpectBox(k.box);
        exchange::CheckForUpdate(c.p);
        EXPECT_EQ(std::vector<std::string>{server.Url() + "/ormandy/version.txt"}, c.host.fetched);
        EXPECT_EQ(1, server.requests);
    }
}

// No connection at all, no server set, and Cancel: the last two fetch nothing.
TEST(UpdateCheck, NoConnectionNoHostOrCancel) {
    struct Case {
        const char* what;
        std::string host;
        int answer;
        std::string box;
        std::size_t fetches;
    } cases[] = {
        {"no connection", "http://127.0.0.1:1", host::vbOK, "Vestrel was unable to find an internet connection.", 1},
        {"no server set", "", host::vbOK, "Update\\Host= in the [MDINote] section of settings-store.ini", 0},
        {"cancel", "http://127.0.0.1:1", host::vbCancel, "", 0},
    };
    for (const Case& k : cases) {
        SCOPED_TRACE(k.what);
        TestCrusade c;
        if (!k.host.empty()) c.host.settings["MDINote/Update/Host"] = k.host;
        c.host.ExpectBox("In order to automatically update Vestrel", k.answer);
        if (!k.box.empty()) c.host.ExpectBox(k.box);
        exchange::CheckForUpdate(c.p);
        EXPECT_EQ(k.fetches, c.host.fetched.size());
    }
    // A bare host name is asked over HTTPS.
    EXPECT_EQ("https://updates.example.org/ormandy/version.txt", exchange::UpdateUrl(" updates.example.org/ "));
}
