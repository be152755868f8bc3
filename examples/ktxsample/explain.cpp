#include "ktxsample.h"

#include <cstdio>
#include <string_view>

int explain_number(const char * number)
{
    const orvet::explanation_range rows = orvet::explain(number);
    if (rows.empty()) {
        std::fprintf(stderr, "There is no message or code \"%s\": give MSG0107, for example, or 259.\n",
                     number);
        return 1;
    }
    std::string_view shown;
    for (const orvet::explanation & row : rows) {
        if (row.subject != shown)
            std::printf("%s\n", row.subject);
        shown = row.subject;
        std::printf("\n  %s\n    %s\n    Do: %s\n", row.operation, row.cause, row.remedy);
    }
    return std::fflush(stdout) == 0 ? 0 : 1;
}
