#pragma once

#include <QObject>

/// An object with a signal, as Qt's tool for signals wants to find it: in a header.
class QtTicker : public QObject {
    Q_OBJECT

Q_SIGNALS:
    void tick(int count);
};
