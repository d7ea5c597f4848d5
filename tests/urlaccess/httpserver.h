#pragma once

#include "tests/support/testsupport.h"

#include <QThread>

#include <atomic>
#include <chrono>
#include <memory>

class QTcpServer;

namespace testsupport {

/// A web server on the loopback address, on a thread of its own. A path for which nothing was said is not
/// found.
class HttpServer {
public:
    enum class Answer {
        forbidden,    ///< 403
        closesAtOnce, ///< not a word
        closesEarly,  ///< after half of what was promised
        redirectLoop, ///< to itself
        silence,      ///< never a word, and never closes
        drip,         ///< now and then a byte, without end
        endlessBody,
        hugeBody, ///< said to have 10 GB
        longList, ///< of a length that nobody knows before its end
        endlessHeaders,
    };

    /// An encrypted one shows a certificate of its own making, which nobody has reason to trust.
    enum class Kind { plain, encrypted };

    explicit HttpServer(Kind kind = Kind::plain);
    ~HttpServer();
    HttpServer(const HttpServer&) = delete;
    HttpServer& operator=(const HttpServer&) = delete;

    /// Says what is at a path, which begins with "/". May be called at any time, as all that follows.
    void serve(const std::string& path, const std::string& body);
    void redirect(const std::string& path, const std::string& target);
    void answer(const std::string& path, Answer answer);
    /// The path is not found, but that is said only after some time.
    void missLate(const std::string& path, std::chrono::milliseconds after);

    /// The location of a path.
    std::string url(const std::string& path) const;
    /// How many requests have come.
    int requests() const { return requests_; }
    /// How many clients have begun to talk of keys.
    int handshakes() const { return handshakes_; }
    /// Whether a text stood in the path of any request.
    bool wasSent(const std::string& text) const;

private:
    class Pages;

    ScopedEnvironment noProxy_;
    std::unique_ptr<Pages> pages_;
    std::atomic<int> requests_ = 0;
    std::atomic<int> handshakes_ = 0;
    std::atomic<bool> ended_ = false;
    QThread thread_;
    Kind kind_;
    QTcpServer* server_; ///< lives on the thread
    int port_ = 0;
};

} // namespace testsupport
