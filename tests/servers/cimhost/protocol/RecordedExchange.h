// SPDX-License-Identifier: MIT
// Requests and responses kept in files, byte for byte.
#pragma once

#include <string>
#include <vector>

struct RecordedExchange {
    std::string name;  ///< of the folder, with the number where it holds several
    std::string request;
    std::string response;
};

/// The exchanges in the folders of `folder`: request.http with response.http, request-2.http with
/// response-2.http and so on; in order of their names. Empty where the folder does not exist.
std::vector<RecordedExchange> recordedExchanges(const std::string& folder);

/// A response as the comparison sees it.
struct ComparableResponse {
    int status = 0;
    std::string cimError;
    /// The message with one element per line, attributes sorted, without white space between
    /// elements. An error that came in the trailer stands where it would without one.
    std::string message;

    bool operator==(const ComparableResponse& other) const {
        return status == other.status && cimError == other.cimError && message == other.message;
    }
};

/// Throws std::runtime_error for a response that is not HTTP or not XML.
ComparableResponse comparable(const std::string& response);

/// The body of a response, put together where it came in chunks; `trailer` gets what followed.
std::string wholeBody(const std::string& response, std::string& trailer);
