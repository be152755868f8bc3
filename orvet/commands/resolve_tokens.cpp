#include "orvet/commands/resolve_tokens.h"

#include <utility>

#include "orvet/foundation/base/memory.h"
#include "orvet/foundation/base/pathname.h"
#include "orvet/foundation/call_trace.h"
#include "orvet/foundation/environment.h"

namespace orvet {

namespace {

/// A token and the directory below Brodan's installation path that replaces it.
struct token_place {
    const char * token;
    const char * folder;
    bool joins; // what follows is a path element, not plain text
};

// In order of precedence, if a text holds both.
constexpr token_place token_places[] = {
    {"$(REPOSITORY)", "repos", false},
    {"$(FILEPATH)", "", true},
};

/// `text` with the token of `place` at `at` resolved.
ustring resolved(const ustring & text, unsigned at, const token_place & place)
{
    const ustring tail(text, at + ustring(place.token).length());
    pathname path(environment::brod_inst_path());
    path += place.folder;
    if (place.joins)
        path += tail;
    return place.joins ? path.text() : ustring(path.text()).append(tail);
}

} // namespace

void resolve_tokens(ustring & text)
{
    const call_trace trace("resolve_tokens");
    trace.info("resolve tokens in <%s>", text);
    memory_watch watch;
    for (const token_place & place : token_places) {
        const ustring token(place.token);
        const unsigned at = text.find(token.data(), 0, token.length(), 0);
        if (at == ustring::npos)
            continue;
        ustring result = resolved(text, at, place);
        if (!watch.failed())
            text = std::move(result);
        break;
    }
    trace.info("return <%s>", text);
    trace.leave();
}

} // namespace orvet
