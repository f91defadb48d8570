#pragma once

class QNetworkAccessManager;
class QNetworkReply;
class QNetworkRequest;

namespace tallowmere {

/// Sends a GET request that goes out once. By itself Qt repeats one whose connection broke before
/// the answer, which to a server that hangs up on too many requests is one more. Where a redirect
/// leads to is a request of its own, which Qt may repeat.
QNetworkReply* SendOnce(QNetworkAccessManager& network, QNetworkRequest request);

} // namespace tallowmere
