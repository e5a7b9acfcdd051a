// A text of the source goes into a field only whole.
#pragma once

#include "base/fixed_record.h"
#include "base/text.h"
#include "equipmentc/source_document.h"

namespace equipmentc {

template <class Record>
void putText(Record& record, tarvik::TextField field, const std::string& text, int line, Problems& problems) {
    const std::string ansi = tarvik::toAnsi(text);
    if (ansi.size() > field.width) {
        problems.add(line, "\"" + text + "\" is longer than the " + std::to_string(field.width) +
                               " characters of its field; shorten it");
    }
    if (tarvik::fromAnsi(ansi) != text) {
        problems.add(line, "\"" + text + "\" has a character outside code page 1252; replace it");
    }
    record.set(field, text);
}

} // namespace equipmentc
