#pragma once

#include <QObject>

#include <future>

// Runs `f` in the thread of `context` and waits until it has run.
template <class F>
void runIn(QObject* context, F f)
{
    std::promise<void> done;
    QMetaObject::invokeMethod(context, [&] {
        f();
        done.set_value();
    });
    done.get_future().wait();
}
