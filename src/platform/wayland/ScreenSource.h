#pragma once

#include "base/ScreenShot.h"

#include <QCoroTask>
#include <QString>

#include <optional>
#include <vector>

// One way of taking the pictures of the screens.
class ScreenSource {
public:
    virtual ~ScreenSource() = default;

    struct Result {
        // One picture a screen, in the order of the system's list, without the
        // screens that are not there any more. Absent when this way did not work.
        std::optional<std::vector<ScreenShot>> shots = {};
        QString problem = {}; // for the log
        // Whether the session has answered that it will not, or not answered at
        // all: then it is not asked in another way either.
        bool final = false;
    };

    [[nodiscard]] virtual QString name() const = 0;
    [[nodiscard]] virtual QCoro::Task<Result> grab() = 0;
};
