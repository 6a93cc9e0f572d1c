#pragma once

#include "platform/Clipboard.h"

// The clipboard as Qt knows it. Where a compositor takes it only from the program that has
// the keyboard, an offer of any other fails.
class QtClipboard final : public Clipboard {
public:
    bool offer(const Formats &formats) override;
    Formats offered() const override;
    bool isEmpty() const override;
};
