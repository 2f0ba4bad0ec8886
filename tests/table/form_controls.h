// Helpers of the form tests: a named control of a form (the test stops when
// it is missing), and typing into a box as the user does, key by key, so
// the box's key filter has its say.
#pragma once

#include <QLineEdit>
#include <QTest>
#include <QWidget>

template <typename T>
T* Child(QWidget& form, const char* name) {
  T* w = form.findChild<T*>(name);
  if (w == nullptr) qFatal("no control %s", name);
  return w;
}

inline void Type(QLineEdit* box, const QString& text) {
  box->selectAll();
  QTest::keyClick(box, Qt::Key_Backspace);
  QTest::keyClicks(box, text);
}
