#pragma once

// Names what keys and buttons of the editor can ask for.
enum class Command {
    close,
    copy,
    save,
    print,
    undo,
    selectAll,
    pickColor,
    nextCorner,
    lastRegion,
    removeMark
};
