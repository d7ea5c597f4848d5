// The URL access module over libcurl. A location is read as a whole when it is opened, or not at all; streams
// are in memory from then on.

#include "platform/urlaccess.h"
#include "platform/asciicase.h"

#include <curl/curl.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <limits>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <utility>

namespace {

using std::chrono::milliseconds;
using Clock = std::chrono::steady_clock;

// What a transfer may take. A library is browsed by somebody who waits: a server that is slower than this is
// as good as none.
constexpr long kConnectLimit = 2000;       ///< milliseconds
constexpr milliseconds kTotalLimit{4000};  ///< redirects included
constexpr milliseconds kPromptLimit{2000}; ///< for an answer after which another one may be asked for
constexpr long kSlowestRate = 64;          ///< bytes a second
constexpr long kSlowestTime = 2;           ///< seconds at less than that rate
constexpr long kReplyLimit = 2; ///< seconds for a reply of a file transfer server, the last one too
constexpr int kMostRedirects = 5;
constexpr std::size_t kLargestBody = 1u << 20; ///< that is read; one without a stated length ends there
constexpr std::size_t kLargestHeaders = 256u << 10;
constexpr char kProtocols[] = "http,https,ftp";

constexpr long kFirstRedirection = 300;
constexpr long kFirstError = 400;
constexpr long kForbidden = 403;

/// What is wanted of a location.
struct Need {
    curl_off_t largest; ///< a body that is said to be longer is none
    std::size_t enough; ///< to read of a body whose length is known
};
constexpr Need kContents{kLargestBody, kLargestBody};
constexpr Need kKindOnly{1 << 30, 16u << 10};

struct Cleanup {
    void operator()(CURL* handle) const { curl_easy_cleanup(handle); }
    void operator()(CURLU* url) const { curl_url_cleanup(url); }
    void operator()(char* text) const { curl_free(text); }
};

struct Answer {
    CURLcode result = CURLE_FAILED_INIT;
    CURL* from = nullptr; ///< while the answer comes in
    std::size_t enough = 0;
    bool cut = false;           ///< there was more than is read
    std::size_t passedOver = 0; ///< of the bodies of redirections
    std::size_t headers = 0;
    std::string body;
    long status = 0;
    curl_off_t length = -1;
    bool isDirectory = false;
    std::string redirection; ///< where the server sends who asks; empty for nowhere

    bool isWhole() const { return result == CURLE_OK || (cut && length >= 0); }
    bool isTooLong() const { return result == CURLE_FILESIZE_EXCEEDED || (cut && length < 0); }
};

struct Stream : UrlStream {
    std::string body;
    std::size_t position = 0;
    bool isDirectory = false;
};

Stream& own(UrlStream* stream) {
    return *static_cast<Stream*>(stream);
}

curl_off_t lengthOf(CURL* handle) {
    curl_off_t length = -1;
    curl_easy_getinfo(handle, CURLINFO_CONTENT_LENGTH_DOWNLOAD_T, &length);
    return length;
}

bool isRedirection(long status) {
    return status >= kFirstRedirection && status < kFirstError;
}

long statusOf(CURL* handle) {
    long status = 0;
    curl_easy_getinfo(handle, CURLINFO_RESPONSE_CODE, &status);
    return status;
}

std::size_t keepBody(char* bytes, std::size_t, std::size_t count, void* to) {
    auto& answer = *static_cast<Answer*>(to);
    if (isRedirection(statusOf(answer.from))) {
        answer.passedOver += count;
        return answer.passedOver <= kLargestBody ? count : 0;
    }
    const std::size_t limit = lengthOf(answer.from) < 0 ? kLargestBody : answer.enough;
    const std::size_t kept = std::min(count, limit - std::min(limit, answer.body.size()));
    answer.body.append(bytes, kept);
    answer.cut = kept < count;
    return kept;
}

std::size_t countHeader(char*, std::size_t, std::size_t count, void* to) {
    auto& answer = *static_cast<Answer*>(to);
    answer.headers += count;
    return answer.headers <= kLargestHeaders ? count : 0;
}

bool isReady() {
    static std::once_flag once;
    static CURLcode result = CURLE_FAILED_INIT;
    std::call_once(once, [] { result = curl_global_init(CURL_GLOBAL_DEFAULT); });
    return result == CURLE_OK;
}

void setLimits(CURL* handle, const Need& need, milliseconds patience) {
    curl_easy_setopt(handle, CURLOPT_PROTOCOLS_STR, kProtocols);
    curl_easy_setopt(handle, CURLOPT_FOLLOWLOCATION, 0L);
    curl_easy_setopt(handle, CURLOPT_SSL_VERIFYPEER, 1L);
    curl_easy_setopt(handle, CURLOPT_SSL_VERIFYHOST, 2L);
    curl_easy_setopt(handle, CURLOPT_NETRC, static_cast<long>(CURL_NETRC_IGNORED));
    curl_easy_setopt(handle, CURLOPT_CONNECTTIMEOUT_MS, kConnectLimit);
    curl_easy_setopt(handle, CURLOPT_TIMEOUT_MS, static_cast<long>(patience.count()));
    curl_easy_setopt(handle, CURLOPT_MAXFILESIZE_LARGE, need.largest);
    curl_easy_setopt(handle, CURLOPT_LOW_SPEED_LIMIT, kSlowestRate);
    curl_easy_setopt(handle, CURLOPT_LOW_SPEED_TIME, kSlowestTime);
    // A connection that is kept is closed with none of our limits, and its server may take minutes to say
    // goodbye.
    curl_easy_setopt(handle, CURLOPT_FORBID_REUSE, 1L);
    curl_easy_setopt(handle, CURLOPT_SERVER_RESPONSE_TIMEOUT, kReplyLimit);
    curl_easy_setopt(handle, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(handle, CURLOPT_QUICK_EXIT, 1L); // a name server may be silent for longer than we wait
    curl_easy_setopt(handle, CURLOPT_FAILONERROR, 1L);
}

using Url = std::unique_ptr<CURLU, Cleanup>;

std::string partOf(CURLU* url, CURLUPart part) {
    char* text = nullptr;
    if (curl_url_get(url, part, &text, 0) != CURLUE_OK)
        return {};
    const std::unique_ptr<char, Cleanup> owned(text);
    return owned.get();
}

/// Whether a server may send somebody from one location to another: to its own host, and not from an
/// encrypted scheme to a plain one. Any other host would learn what is asked of this one.
bool maySendOn(CURLU* from, CURLU* to) {
    const std::string host = partOf(from, CURLUPART_HOST);
    const std::string target = partOf(to, CURLUPART_HOST);
    const bool isSameHost = !host.empty() && platform::equalsWithoutCase(host, target);
    const std::string scheme = partOf(from, CURLUPART_SCHEME);
    const std::string wanted = partOf(to, CURLUPART_SCHEME);
    return isSameHost && (wanted == scheme || (scheme == "http" && wanted == "https"));
}

/// Asks for what lies at one location, as far as there is need. @param patience positive.
Answer fetchOnce(CURLU* url, const Need& need, milliseconds patience) {
    Answer answer;
    answer.enough = need.enough;
    const std::unique_ptr<CURL, Cleanup> handle(curl_easy_init());
    if (!handle)
        return answer;
    answer.from = handle.get();
    setLimits(handle.get(), need, patience);
    curl_easy_setopt(handle.get(), CURLOPT_CURLU, url);
    curl_easy_setopt(handle.get(), CURLOPT_WRITEFUNCTION, &keepBody);
    curl_easy_setopt(handle.get(), CURLOPT_WRITEDATA, &answer);
    curl_easy_setopt(handle.get(), CURLOPT_HEADERFUNCTION, &countHeader);
    curl_easy_setopt(handle.get(), CURLOPT_HEADERDATA, &answer);
    answer.result = curl_easy_perform(handle.get());
    answer.from = nullptr;

    answer.status = statusOf(handle.get());
    answer.length = lengthOf(handle.get());
    answer.isDirectory = partOf(url, CURLUPART_PATH).ends_with('/');
    const char* redirection = nullptr;
    curl_easy_getinfo(handle.get(), CURLINFO_REDIRECT_URL, &redirection);
    answer.redirection = redirection ? redirection : "";
    return answer;
}

/// Goes where the answer sends. @return false if that is nowhere, or leads away from the server.
bool follow(const Answer& answer, Url& url) {
    Url next(curl_url());
    if (!next || curl_url_set(next.get(), CURLUPART_URL, answer.redirection.c_str(), 0) != CURLUE_OK ||
        !maySendOn(url.get(), next.get()))
        return false;
    url = std::move(next);
    return true;
}

/// Reads what lies at a location, or where its server sends on, as far as there is need.
/// @param patience positive.
Answer fetch(const char* location, const Need& need, milliseconds patience) {
    const auto deadline = Clock::now() + patience;
    Url url(isReady() ? curl_url() : nullptr);
    if (!url || curl_url_set(url.get(), CURLUPART_URL, location, CURLU_URLENCODE) != CURLUE_OK)
        return {};
    Answer answer;
    for (int redirects = 0; redirects <= kMostRedirects && patience.count() > 0; ++redirects) {
        answer = fetchOnce(url.get(), need, patience);
        if (answer.result != CURLE_OK || !isRedirection(answer.status))
            return answer;
        if (!follow(answer, url))
            break;
        patience = std::chrono::duration_cast<milliseconds>(deadline - Clock::now());
    }
    answer.result = CURLE_TOO_MANY_REDIRECTS;
    answer.cut = false;
    return answer;
}

bool isRefusal(CURLcode result) {
    return result == CURLE_HTTP_RETURNED_ERROR || result == CURLE_REMOTE_FILE_NOT_FOUND ||
           result == CURLE_REMOTE_ACCESS_DENIED || result == CURLE_FTP_COULDNT_RETR_FILE ||
           result == CURLE_LOGIN_DENIED;
}

/// A directory is there even if its server does not list it.
bool isUnlistedDirectory(const Answer& answer) {
    return answer.result == CURLE_HTTP_RETURNED_ERROR && answer.status == kForbidden && answer.isDirectory;
}

/// A file transfer server tells directories from files by the slash at the end, and sends nobody on.
Answer ask(const std::string& url, milliseconds patience) {
    const auto begin = Clock::now();
    Answer answer = fetch(url.c_str(), kKindOnly, patience);
    const auto taken = std::chrono::ceil<milliseconds>(Clock::now() - begin);
    if (url.starts_with("ftp:") && !url.ends_with('/') && isRefusal(answer.result) &&
        taken < std::min(patience, kPromptLimit))
        return fetch((url + '/').c_str(), kKindOnly, patience - taken);
    return answer;
}

milliseconds patienceOf(const UrlInfo* info) {
    return info && info->patience > 0 ? std::min(milliseconds(info->patience), kTotalLimit) : kTotalLimit;
}

const UrlScheme* schemeOf(std::string_view url) {
    const auto found = std::ranges::find_if(
        kUrlSchemes, [&](const UrlScheme& scheme) { return url.starts_with(scheme.prefix); });
    return found == kUrlSchemes.end() ? nullptr : &*found;
}

int kindOf(bool isDirectory) {
    return isDirectory ? kUrlDirectory : kUrlFile;
}

void tell(UrlInfo* info, bool answered, std::int64_t size) {
    if (!info)
        return;
    info->answered = answered ? 1 : 0;
    info->size = size;
}

} // namespace

UrlStream* URL_Fopen(const char* url, const char* mode) {
    const UrlScheme* scheme = schemeOf(url);
    if (!scheme || mode[0] != 'r' || std::strchr(mode, '+'))
        return nullptr;
    Answer answer = fetch(url, kContents, kTotalLimit);
    if (answer.result != CURLE_OK)
        return nullptr;
    return new Stream{{scheme->magic}, std::move(answer.body), 0, answer.isDirectory};
}

int URL_Fclose(UrlStream* stream) {
    delete &own(stream);
    return 0;
}

std::size_t URL_Fread(void* buffer, std::size_t size, std::size_t count, UrlStream* stream) {
    Stream& from = own(stream);
    if (size == 0)
        return 0;
    const std::size_t whole = std::min(count, (from.body.size() - from.position) / size);
    std::memcpy(buffer, from.body.data() + from.position, whole * size);
    from.position += whole * size;
    return whole;
}

int URL_Fseek(UrlStream* stream, long offset, int origin) {
    Stream& from = own(stream);
    const auto size = static_cast<long>(from.body.size());
    const long base = origin == SEEK_SET ? 0 : origin == SEEK_END ? size : static_cast<long>(from.position);
    if (offset < -base || offset > size - base)
        return -1;
    from.position = static_cast<std::size_t>(base + offset);
    return 0;
}

char* URL_Fgets(char* buffer, int size, UrlStream* stream) {
    Stream& from = own(stream);
    if (size <= 0 || from.position == from.body.size())
        return nullptr;
    const std::string_view rest = std::string_view(from.body).substr(from.position);
    const std::size_t line = std::min(rest.find('\n'), rest.size() - 1) + 1;
    const std::size_t length = std::min(line, static_cast<std::size_t>(size) - 1);
    rest.copy(buffer, length);
    buffer[length] = '\0';
    from.position += length;
    return buffer;
}

int URL_Fgetc(UrlStream* stream) {
    Stream& from = own(stream);
    return from.position == from.body.size() ? EOF : static_cast<unsigned char>(from.body[from.position++]);
}

int URL_Ungetc(int character, UrlStream* stream) {
    Stream& from = own(stream);
    if (character == EOF || from.position == 0)
        return EOF;
    from.body[--from.position] = static_cast<char>(character);
    return character;
}

long URL_Ftell(UrlStream* stream) {
    return static_cast<long>(own(stream).position);
}

int URL_Info(UrlStream* stream, UrlInfo* info) {
    const Stream& from = own(stream);
    tell(info, true, static_cast<std::int64_t>(from.body.size()));
    return kindOf(from.isDirectory);
}

int URL_InfoURL(const char* url, UrlInfo* info) {
    const Answer answer = schemeOf(url) ? ask(url, patienceOf(info)) : Answer{};
    const bool isThere = answer.isWhole() || isUnlistedDirectory(answer);
    const bool answered = isThere || answer.isTooLong() || isRefusal(answer.result);
    tell(info, answered, isThere ? answer.length : -1);
    return isThere ? kindOf(answer.isDirectory) : kUrlUnreachable;
}

int URL_Loop2(void) {
    return 0;
}
