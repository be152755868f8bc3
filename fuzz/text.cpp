// Bytes as text, and a row of edits and searches. The first two lines are the texts, the rest are steps of
// six bytes: the edit that stays, a place and a length in both texts, and a character.

#include "fuzz.h"

/// The text with another one inserted.
static ustring inserted(const ustring & text, unsigned pos, const ustring & other, unsigned spos, unsigned n)
{
    ustring all(text);
    all.insert(pos, &text == &other ? all : other, spos, n);
    ustring parts(text, 0, pos);
    parts.append(ustring(other, spos, n)).append(ustring(text, pos));
    expect(all == parts, "an insert leaves what is around it", parts, all);
    parts.remove(std::min(pos, text.length()), all.length() - text.length());
    expect(parts == text, "a remove takes an insert back", text, parts);
    expect_same("the bytes are made anew after an edit", ustring(all, 0), all);
    return all;
}

/// The text with a range in small letters, and without a character at its ends.
static ustring stripped(const ustring & text, unsigned pos, unsigned n, char16_t ch)
{
    const ustring small = ustring(text).to_upper(pos, n).to_lower(pos, n);
    const ustring parts = ustring(text, 0, pos).append(ustring(text, pos, n).to_lower());
    expect(ustring(small, 0, parts.length()) == parts, "only the range changes its case", parts, small);
    const ustring bare = ustring(small).strip(ustring::strip_both, ch);
    expect(bare.data()[0] != ch || bare.length() == 0, "nothing is left to strip", small, bare);
    expect(value(small).has(value(bare)), "strip removes the ends alone", small, bare);
    return bare;
}

/// A match is one, and there is none before it.
static void search(const ustring & text, unsigned pos, const ustring & part, int flag)
{
    const unsigned n = part.length();
    const unsigned at = text.find(part.data(), pos, n, flag);
    const unsigned any = text.find_first_of(part.data(), pos, n, flag);
    const unsigned none = text.find_first_not_of(part.data(), pos, n, flag);
    for (unsigned i = pos; i < text.length(); ++i) {
        const bool is_one = part.find(text.data()[i], 0, flag) != ustring::npos;
        const bool is_match = text.compare(i, n, part, 0, n, flag) == 0;
        expect(i > at || (i == at) == is_match, "find finds the first match", i, at);
        expect(i > any || (i == any) == is_one, "find_first_of finds the first of them", i, any);
        expect(i > none || (i == none) != is_one, "find_first_not_of finds the first other", i, none);
    }
}

void text(std::string_view input)
{
    ustring texts[2];
    for (ustring & text : texts) {
        const std::string bytes = take_line(input).c_str();
        text = bytes.c_str();
        expect_same("bytes come out as they went in", bytes, text);
    }
    auto & [text, other] = texts;
    while (!input.empty() && text.length() < 3000) {
        const unsigned char edit = take_byte(input);
        const auto number = [&] { return unsigned(static_cast<signed char>(take_byte(input))); };
        const unsigned pos = number(), n = number(), spos = number(), sn = number(); // npos among them
        const auto ch = static_cast<char16_t>(take_byte(input) & 0x7F);
        if (const ustring part(other, spos, std::min(sn, 8U)); part.length() != 0)
            search(text, pos, part, ch & 1);
        ustring results[] = {inserted(text, pos, other, spos, sn), inserted(text, pos, text, spos, sn),
                             stripped(text, pos, n, ch), ustring(text, pos, n), ustring(text).remove(pos, n)};
        text = results[edit % std::size(results)];
    }
}
