// SPDX-License-Identifier: MIT
#include "wire/client/HttpClient.h"

#include <curl/curl.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <exception>
#include <optional>
#include <system_error>
#include <utility>

#include "wire/http/LoopbackAddress.h"

namespace wire {

namespace {

struct FreeList {
    void operator()(curl_slist* list) const { curl_slist_free_all(list); }
};
using List = std::unique_ptr<curl_slist, FreeList>;

void append(List& list, const std::string& line) {
    curl_slist* const longer = curl_slist_append(list.get(), line.c_str());
    if (longer == nullptr) {
        throw std::bad_alloc();
    }
    [[maybe_unused]] curl_slist* const same = list.release();
    list.reset(longer);
}

CURL* newHandle() {
    // Once for the program; older versions do not allow it at the same time as anything else.
    static const CURLcode initialized = curl_global_init(CURL_GLOBAL_DEFAULT);
    CURL* const handle = initialized == CURLE_OK ? curl_easy_init() : nullptr;
    if (handle == nullptr) {
        throw HttpError("libcurl cannot be used");
    }
    return handle;
}

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view blanks = " \t\r\n";
    const std::size_t begin = std::min(text.find_first_not_of(blanks), text.size());
    return text.substr(begin, text.find_last_not_of(blanks) + 1 - begin);
}

}  // namespace

/// One handle of libcurl, and what its callbacks collect of the exchange under way.
class HttpClient::Transfer {
public:
    Transfer(const ServerUrl& url, const HttpClientOptions& options)
        : options_(options),
          isEncrypted_(url.isEncrypted),
          url_(url.withoutCredentials()),
          handle_(newHandle()) {
        set(CURLOPT_NOSIGNAL, 1L);
        set(CURLOPT_ERRORBUFFER, detail_.data());
        set(CURLOPT_HTTP_VERSION, static_cast<long>(CURL_HTTP_VERSION_1_1));
        set(CURLOPT_SUPPRESS_CONNECT_HEADERS, 1L);
        setTimes();
        setTls();
        setCredentials(url.userAndPassword);
        // Empty texts keep libcurl from looking into the environment.
        set(CURLOPT_PROXY, options_.proxy.c_str());
        set(CURLOPT_NOPROXY, "");
        setCallbacks();
    }

    HttpResponse post(const std::string& target, const HttpFields& fields, std::string_view body) {
        const std::string url = url_ + target;
        // libcurl adds these two of itself.
        List lines;
        append(lines, "Expect:");
        append(lines, "Accept:");
        for (const HttpField& field : fields) {
            append(lines, field.name + ": " + field.value);
        }
        set(CURLOPT_URL, url.c_str());
        set(CURLOPT_POST, 1L);
        set(CURLOPT_POSTFIELDSIZE_LARGE, static_cast<curl_off_t>(body.size()));
        set(CURLOPT_HTTPHEADER, lines.get());
        unsent_ = body;
        response_ = {};
        headerBytes_ = 0;
        hasWholeHeader_ = false;
        failure_ = nullptr;
        detail_.front() = '\0';
        const CURLcode code = curl_easy_perform(handle_.get());
        set(CURLOPT_HTTPHEADER, static_cast<curl_slist*>(nullptr));
        if (failure_) {
            std::rethrow_exception(failure_);
        }
        if (code != CURLE_OK) {
            throw HttpError(reason(code));
        }
        // libcurl takes a header for whole that ends with the connection.
        if (!hasWholeHeader_) {
            throw HttpError(noCompleteAnswer);
        }
        return std::move(response_);
    }

private:
    struct FreeHandle {
        void operator()(CURL* handle) const { curl_easy_cleanup(handle); }
    };

    static constexpr const char* noCompleteAnswer =
        "the server closed the connection without a complete answer";

    template <typename Value>
    void set(CURLoption option, Value value) {
        const CURLcode code = curl_easy_setopt(handle_.get(), option, value);
        if (code != CURLE_OK) {
            throw HttpError(curl_easy_strerror(code));
        }
    }

    template <typename Value>
    Value info(CURLINFO what) const {
        Value value{};
        curl_easy_getinfo(handle_.get(), what, &value);
        return value;
    }

    void setTimes() {
        set(CURLOPT_CONNECTTIMEOUT_MS, static_cast<long>(options_.connectTime.count()));
        set(CURLOPT_TIMEOUT_MS, static_cast<long>(options_.callTime.count()));
    }

    void setTls() {
        if (!isEncrypted_) {
            return;
        }
        set(CURLOPT_SSLVERSION, static_cast<long>(CURL_SSLVERSION_TLSv1_2));
        // Without it there is no telling whose certificate it was.
        set(CURLOPT_CERTINFO, 1L);
        if (!options_.checksCertificate) {
            set(CURLOPT_SSL_VERIFYPEER, 0L);
            set(CURLOPT_SSL_VERIFYHOST, 0L);
        }
        if (!options_.authorities.empty()) {
            set(CURLOPT_CAINFO, options_.authorities.c_str());
            set(CURLOPT_CAPATH, static_cast<const char*>(nullptr));
        }
        if (!options_.certificate.empty()) {
            set(CURLOPT_SSLCERT, options_.certificate.c_str());
            set(CURLOPT_SSLKEY,
                options_.key.empty() ? options_.certificate.c_str() : options_.key.c_str());
        }
    }

    void setCredentials(const std::string& userAndPassword) {
        set(CURLOPT_HTTPAUTH, static_cast<long>(CURLAUTH_BASIC));
        if (!userAndPassword.empty()) {
            set(CURLOPT_USERPWD, userAndPassword.c_str());
        } else if (options_.readsNetrc) {
            set(CURLOPT_NETRC, static_cast<long>(CURL_NETRC_OPTIONAL));
        }
    }

    void setCallbacks() {
        // A function for the body, and none to begin it again: so libcurl does not send it twice.
        set(CURLOPT_READFUNCTION, &giveBody);
        set(CURLOPT_READDATA, this);
        set(CURLOPT_HEADERFUNCTION, &takeHeader);
        set(CURLOPT_HEADERDATA, this);
        set(CURLOPT_WRITEFUNCTION, &takeBody);
        set(CURLOPT_WRITEDATA, this);
        if (!isEncrypted_ && options_.passwordInClear) {
            set(CURLOPT_VERBOSE, 1L);
            set(CURLOPT_DEBUGFUNCTION, &watch);
            set(CURLOPT_DEBUGDATA, this);
        }
    }

    /// Runs `take`, keeps what it throws for post(), and tells libcurl how many bytes it took.
    template <typename Take>
    std::size_t taken(std::size_t size, Take take) {
        try {
            take();
            return size;
        } catch (...) {
            failure_ = std::current_exception();
            return 0;
        }
    }

    static std::size_t giveBody(char* buffer, std::size_t /*one*/, std::size_t size, void* data) {
        auto& self = *static_cast<Transfer*>(data);
        const std::size_t count = self.unsent_.copy(buffer, size);
        self.unsent_.remove_prefix(count);
        return count;
    }

    static std::size_t takeHeader(char* buffer, std::size_t /*one*/, std::size_t size, void* data) {
        auto& self = *static_cast<Transfer*>(data);
        return self.taken(size, [&] { self.addLine({buffer, size}); });
    }

    static std::size_t takeBody(char* buffer, std::size_t /*one*/, std::size_t size, void* data) {
        auto& self = *static_cast<Transfer*>(data);
        return self.taken(size, [&] { self.addBody({buffer, size}); });
    }

    static int watch(CURL* /*handle*/, curl_infotype type, char* bytes, std::size_t size,
                     void* data) {
        if (type == CURLINFO_HEADER_OUT) {
            auto& self = *static_cast<Transfer*>(data);
            self.taken(size, [&] { self.noticePassword({bytes, size}); });
        }
        return 0;
    }

    /// A line of a header, of an interim answer as well, or of the trailer.
    void addLine(std::string_view line) {
        headerBytes_ += line.size();
        if (headerBytes_ > options_.headerBytes) {
            throw HttpError("the header of the answer is too large");
        }
        if (line.substr(0, 5) == "HTTP/") {
            response_.fields.clear();
            response_.status = static_cast<unsigned>(info<long>(CURLINFO_RESPONSE_CODE));
            hasWholeHeader_ = false;
            return;
        }
        const std::size_t colon = line.find(':');
        if (colon != std::string_view::npos) {
            response_.fields.push_back(
                {std::string(line.substr(0, colon)), std::string(trimmed(line.substr(colon + 1)))});
        } else if (trimmed(line).empty()) {
            hasWholeHeader_ = true;
        }
    }

    void addBody(std::string_view bytes) {
        if (bytes.size() > options_.bodyBytes - response_.body.size()) {
            throw HttpError("the answer is larger than " + std::to_string(options_.bodyBytes) +
                            " bytes");
        }
        response_.body += bytes;
    }

    void noticePassword(std::string_view header) {
        if (header.find("\r\nAuthorization: ") == std::string_view::npos) {
            return;
        }
        const std::string address = info<const char*>(CURLINFO_PRIMARY_IP);
        const bool staysHere =
            options_.proxy.empty() && (isLoopbackIpv4(address) || isLoopbackIpv6(address));
        if (!staysHere) {
            std::exchange(options_.passwordInClear, nullptr)(address);
        }
        set(CURLOPT_VERBOSE, 0L);
    }

    /// The names that the server's certificate holds; empty if there was none to be seen.
    std::string certificateNames() const {
        const auto* certificates = info<curl_certinfo*>(CURLINFO_CERTINFO);
        if (certificates == nullptr || certificates->num_of_certs == 0) {
            return {};
        }
        std::string subject;
        for (const curl_slist* entry = certificates->certinfo[0]; entry != nullptr;
             entry = entry->next) {
            const std::string_view line = entry->data;
            const std::size_t colon = std::min(line.find(':'), line.size() - 1);
            const std::string_view name = line.substr(0, colon);
            if (name == "X509v3 Subject Alternative Name") {
                return std::string(line.substr(colon + 1));
            }
            if (name == "Subject") {
                subject = line.substr(colon + 1);
            }
        }
        return subject;
    }

    std::string detail(CURLcode code) const {
        const std::string_view text = trimmed(detail_.data());
        return " (" + (text.empty() ? curl_easy_strerror(code) : std::string(text)) + ")";
    }

    std::string whyNotConnected(CURLcode code) const {
        const auto error = info<long>(CURLINFO_OS_ERRNO);
        return "cannot connect" +
               (error == 0 ? detail(code)
                           : " (" + std::generic_category().message(static_cast<int>(error)) + ")");
    }

    std::string whyNotTrusted(CURLcode code) const {
        const std::string names = certificateNames();
        return "the server's certificate is not accepted" + detail(code) +
               (names.empty() ? "" : ": it is for " + names);
    }

    /// With TLS 1.3 a client believes that it is connected before the server has seen that it has no
    /// certificate, and what the server says of that may be lost with the connection.
    std::string whyBroken(CURLcode code) const {
        const bool mayLackCertificate =
            isEncrypted_ && options_.certificate.empty() && headerBytes_ == 0;
        return "the connection broke" + detail(code) +
               (mayLackCertificate ? "; the server may demand a certificate of this client" : "");
    }

    std::string reason(CURLcode code) const {
        switch (code) {
            case CURLE_COULDNT_RESOLVE_HOST:
            case CURLE_URL_MALFORMAT:
                return "the host is not known" + detail(code);
            case CURLE_COULDNT_RESOLVE_PROXY:
                return "the proxy is not known" + detail(code);
            case CURLE_COULDNT_CONNECT:
                return whyNotConnected(code);
            case CURLE_OPERATION_TIMEDOUT:
                return info<curl_off_t>(CURLINFO_PRETRANSFER_TIME_T) == 0
                           ? "cannot connect in time" + detail(code)
                           : "the server did not answer in time";
            case CURLE_GOT_NOTHING:
            case CURLE_PARTIAL_FILE:
            case CURLE_SEND_FAIL_REWIND:
                return noCompleteAnswer;
            case CURLE_SEND_ERROR:
            case CURLE_RECV_ERROR:
                return whyBroken(code);
            case CURLE_UNSUPPORTED_PROTOCOL:
            case CURLE_WEIRD_SERVER_REPLY:
                return "the answer is not HTTP" + detail(code);
            case CURLE_PEER_FAILED_VERIFICATION:
                return whyNotTrusted(code);
            case CURLE_SSL_CERTPROBLEM:
                return "the certificate or the key of this client cannot be used" + detail(code);
            case CURLE_SSL_CACERT_BADFILE:
                return "the certificates of authorities cannot be read" + detail(code);
            case CURLE_SSL_CONNECT_ERROR:
                return "no encrypted connection can be made" + detail(code);
            default:
                return "the exchange failed" + detail(code);
        }
    }

    HttpClientOptions options_;
    bool isEncrypted_;
    std::string url_;
    std::array<char, CURL_ERROR_SIZE> detail_{};  // libcurl's words

    // Of the exchange under way.
    std::string_view unsent_;
    HttpResponse response_;
    std::size_t headerBytes_ = 0;
    bool hasWholeHeader_ = false;
    std::exception_ptr failure_;

    // Last, since it refers to the others until it is gone.
    std::unique_ptr<CURL, FreeHandle> handle_;
};

HttpClient::HttpClient(const ServerUrl& url, const HttpClientOptions& options)
    : transfer_(std::make_unique<Transfer>(url, options)) {}

HttpClient::~HttpClient() = default;

HttpResponse HttpClient::post(const std::string& target, const HttpFields& fields,
                              std::string_view body) {
    return transfer_->post(target, fields, body);
}

}  // namespace wire
