#pragma once

// Waits for a condition while the event loop runs, as Qt's QTRY macros do, but gives the answer
// to the test: the QTRY macros report a failure to Qt's own test runner, which a GoogleTest
// program does not run, so there they end the test quietly and it passes.
#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QTest>

#include <functional>

inline bool WaitUntil(const std::function<bool()>& done, int timeoutMs = 5000) {
  QDeadlineTimer deadline(timeoutMs);
  while (!done()) {
    if (deadline.hasExpired()) return false;
    QTest::qWait(10);
  }
  return true;
}
