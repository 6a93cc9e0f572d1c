#pragma once

#include "platform/Clipboard.h"

// Offers through the clipboard that Qt knows.
class QtClipboard : public Clipboard {
public:
    bool offer(const Formats &formats) override;
    Formats offered() const override;
    bool isEmpty() const override;
};
