// A row of edits and searches, beside the same ones on a string of the standard library. The first two lines
// are the texts, the rest says what is done to them.
#include <algorithm>
#include <iterator>

#include "fuzz.h"

namespace {

using orvet::ustring;
using namespace fuzz;

using units = std::u16string;

/// What an edit is given: a place in the text, a part of the other one, and a character.
struct step {
    unsigned pos, n, spos, sn;
    char16_t ch;
};

units units_of(const ustring & text)
{
    return {text.data(), text.length()};
}

units part(const units & text, unsigned pos, unsigned n)
{
    return pos < text.size() ? text.substr(pos, n) : units();
}

char16_t folded(char16_t unit)
{
    return unit >= u'a' && unit <= u'z' ? static_cast<char16_t>(unit - u'a' + u'A') : unit;
}

units folded(units text, bool wanted = true)
{
    for (char16_t & unit : text)
        unit = wanted ? folded(unit) : unit;
    return text;
}

units lowered(units text, bool wanted)
{
    for (char16_t & unit : text)
        unit = wanted && unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit - u'A' + u'a') : unit;
    return text;
}

int sign(int order)
{
    return (order > 0) - (order < 0);
}

units stripped(units text, int type, char16_t ch)
{
    while ((type & 2) && text.ends_with(ch))
        text.pop_back();
    while ((type & 1) && text.starts_with(ch))
        text.erase(0, 1);
    return text;
}

void splice(units & text, unsigned pos, const units & other)
{
    text.insert(std::min<std::size_t>(pos, text.size()), other);
}

/// The first place from `pos` on whose unit is one of `chars`, or is not.
unsigned first_of(const units & text, const units & chars, unsigned pos, bool wanted)
{
    for (unsigned i = pos; i < text.size(); ++i)
        if ((chars.find(text[i]) != units::npos) == wanted)
            return i;
    return ustring::npos;
}

constexpr struct {
    void (*edit)(ustring & text, const ustring & other, const step & s);
    void (*model)(units & text, const units & other, const step & s);
} edits[] = {
    {[](ustring & t, const ustring & o, const step &) { t.append(o); },
     [](units & t, const units & o, const step &) { t += o; }},
    {[](ustring & t, const ustring &, const step &) { t.append(t); },
     [](units & t, const units &, const step &) { t += units(t); }},
    {[](ustring & t, const ustring & o, const step & s) { t.insert(s.pos, o, s.spos, s.sn); },
     [](units & t, const units & o, const step & s) { splice(t, s.pos, part(o, s.spos, s.sn)); }},
    {[](ustring & t, const ustring &, const step & s) { t.insert(s.pos, t, s.spos, s.sn); },
     [](units & t, const units &, const step & s) { splice(t, s.pos, part(t, s.spos, s.sn)); }},
    {[](ustring & t, const ustring &, const step & s) { t.remove(s.pos, s.n); },
     [](units & t, const units &, const step & s) { t.erase(std::min<std::size_t>(s.pos, t.size()), s.n); }},
    {[](ustring & t, const ustring & o, const step & s) { t.assign(o, s.spos, s.sn); },
     [](units & t, const units & o, const step & s) { t = part(o, s.spos, s.sn); }},
    {[](ustring & t, const ustring &, const step & s) { t.assign(t, s.pos, s.n); },
     [](units & t, const units &, const step & s) { t = part(t, s.pos, s.n); }},
    {[](ustring & t, const ustring &, const step & s) { t.strip(s.pos & 3, s.ch); },
     [](units & t, const units &, const step & s) { t = stripped(t, s.pos & 3, s.ch); }},
    {[](ustring & t, const ustring &, const step & s) { t.to_upper(s.pos, s.n); },
     [](units & t, const units &, const step & s) {
         const units middle = part(t, s.pos, s.n);
         if (!middle.empty())
             t.replace(s.pos, middle.size(), folded(middle));
     }},
    {[](ustring & t, const ustring & o, const step &) { t = o; },
     [](units & t, const units & o, const step &) { t = o; }},
};

void search(const ustring & text, const ustring & other, const step & s)
{
    const units model = units_of(text);
    const units chars = part(units_of(other), s.spos, s.sn);
    const int flag = s.ch & 1;
    const auto found = [](std::size_t at) { return at == units::npos ? ustring::npos : unsigned(at); };
    const units all = folded(model, flag);
    require(text.find(s.ch, s.pos, flag) == found(all.find(flag ? folded(s.ch) : s.ch, s.pos)));
    require(sign(text.compare(s.pos, s.n, other, s.spos, s.sn, flag)) ==
            sign(lowered(part(model, s.pos, s.n), flag).compare(lowered(chars, flag))));
    require((text == other) == (model == units_of(other)));
    if (chars.empty())
        return;
    const auto n = static_cast<unsigned>(chars.size());
    require(text.find(chars.data(), s.pos, n, flag) == found(all.find(folded(chars, flag), s.pos)));
    require(text.find_first_of(chars.data(), s.pos, n, flag) ==
            first_of(all, folded(chars, flag), s.pos, true));
    require(text.find_first_not_of(chars.data(), s.pos, n, flag) ==
            first_of(all, folded(chars, flag), s.pos, false));
}

const target edits_target("edits", [](std::string_view input) {
    constexpr std::size_t longest = 5000;
    taker from(input);
    std::vector<ustring> texts;
    for (int i = 0; i < 2; ++i)
        texts.emplace_back(from.line().c_str());
    ustring & text = texts[0];
    const ustring & other = texts[1];
    const units other_units = units_of(other);
    units model = units_of(text);
    while (!from.empty() && model.size() < longest) {
        const auto & edit = edits[from.byte() % std::size(edits)];
        const auto count = [&] { // the last one means up to the end
            const unsigned value = from.byte();
            return value == 255 ? unsigned{ustring::npos} : value;
        };
        const step s{count(), count(), count(), count(), static_cast<char16_t>(from.byte() & 0x7F)};
        edit.edit(text, other, s);
        edit.model(model, other_units, s);
        require(units_of(text) == model && text.data()[text.length()] == 0);
        require(bytes_of(text) == bytes_of(ustring(text, 0))); // made anew, not what stood there before
        search(text, other, s);
    }
    require(units_of(other) == other_units);
});

} // namespace
