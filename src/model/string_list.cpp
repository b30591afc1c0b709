#include "model/string_list.h"

namespace model {

void remove_duplicates(QStringList& list) {
    for (int kept = 0; kept < list.size(); ++kept) {
        for (int other = list.size() - 1; other > kept; --other) {
            if (list.at(other) == list.at(kept))
                list.removeAt(other);
        }
    }
}

} // namespace model
