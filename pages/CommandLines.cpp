#include "pages/CommandLines.h"

#include <QCoreApplication>

#include <chrono>
#include <cstdlib>
#include <iostream>
#include <thread>
#include <utility>

namespace zorvo {

namespace {

constexpr std::chrono::seconds kTimeToEnd{1};

void readAll(const std::function<void(const std::string&)>& take)
{
    std::string sLine;
    while (std::getline(std::cin, sLine))
        QMetaObject::invokeMethod(
            qApp, [take, sLine] { take(sLine); }, Qt::QueuedConnection);
    // Not by quit(), which closes windows first: ours lies in one of the program's, which waits for our end.
    QMetaObject::invokeMethod(
        qApp, [] { QCoreApplication::exit(); }, Qt::QueuedConnection);
    std::this_thread::sleep_for(kTimeToEnd);
    std::_Exit(0);
}

} // namespace

CommandLines::CommandLines(std::function<void(const std::string&)> take)
{
    std::thread([take = std::move(take)] { readAll(take); }).detach();
}

} // namespace zorvo
