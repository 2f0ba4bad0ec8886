// Finding a form's control by its name in the Qt tests: a missing control
// ends the test program with its name rather than a null pointer.
#pragma once

#include <QWidget>
#include <QtGlobal>

template <typename T>
T* Child(QWidget& form, const char* name) {
  T* w = form.findChild<T*>(name);
  if (w == nullptr) qFatal("no control %s", name);
  return w;
}
