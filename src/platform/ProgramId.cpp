#include "platform/ProgramId.h"

QString programId() { return QStringLiteral(VELLUMORA_ID); }
