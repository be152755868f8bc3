#include "orvet/inputfiles/file_input_parms.h"

#include <cstring>
#include <utility>

#include "orvet/files/kt_file.h"
#include "orvet/foundation/base/memory.h"
#include "orvet/foundation/call_trace.h"
#include "orvet/foundation/codes.h"
#include "orvet/foundation/messages.h"
#include "orvet/inputfiles/auth_profile_info.h"
#include "orvet/inputfiles/record_internal.h"
#include "orvet/inputfiles/user_info.h"

namespace orvet {

/// What a kind of file makes of its sections.
class section_builder {
public:
    /// What the trace calls the failed record.
    virtual const char * name() const { return ""; }
    /// A separator line begins a section. False when there is no place for it.
    virtual bool begin(const call_trace &) { return true; }
    /// Takes a line of the section in hand and gives the code of the record's `set`.
    virtual short take(const call_trace & trace, const ustring & line) = 0;
    /// The section in hand is whole. False when it is not valid.
    virtual bool end(const call_trace & trace) = 0;

protected:
    ~section_builder() = default;
};

namespace {

enum file_kind { agent_file = 1, profile_file = 2, user_file = 3 };

constexpr int slot_count = 5;

/// Agents fill the slots in place.
class agent_builder final : public section_builder {
public:
    agent_builder(VXA_inst_info * slots, int & index) : slots_(slots), index_(index) {}

    const char * name() const override { return "VXA"; }
    bool begin(const call_trace & trace) override
    {
        if (index_++ < slot_count)
            return true;
        trace.fatal("Too many operating systems");
        return false;
    }
    short take(const call_trace & trace, const ustring & line) override
    {
        trace.call("set input value. _index is %d", index_);
        return slots_[index_ - 1].set(line);
    }
    bool end(const call_trace &) override { return slots_[index_ - 1].validate() != 0; }

private:
    VXA_inst_info * slots_;
    int & index_;
};

void describe(const call_trace & trace, const auth_profile_info & profile)
{
    if (!system_trace::passes(severity::info))
        return;
    ustring text;
    profile.toString(text);
    trace.info("profile_info = -->%s<-- ", text);
}

void describe(const call_trace & trace, const user_info & user)
{
    trace.info("User and auth_profile = -->%s<-- -->%s<-- ", user.usUserName(), user.usProfileName());
}

/// Other records are collected: one working record takes the lines, and a copy of it goes into the vector.
template <class Record>
class record_builder final : public section_builder {
public:
    explicit record_builder(vector & records) : records_(records) {}

    short take(const call_trace & trace, const ustring & line) override
    {
        trace.call("set input value");
        return record_.set(line);
    }
    bool end(const call_trace & trace) override
    {
        if (!record_.validate())
            return false;
        describe(trace, record_);
        const unsigned before = records_.size();
        records_.push_back(make<Record>(std::move(record_)));
        record_.clear();
        return records_.size() != before;
    }

private:
    vector & records_;
    Record record_;
};

/// A kind of file that there is no record for.
class no_builder final : public section_builder {
public:
    short take(const call_trace & trace, const ustring &) override
    {
        trace.call("set input value");
        return code::success;
    }
    bool end(const call_trace &) override { return false; }
};

/// True for a line that says nothing: empty, a comment or a head in brackets.
bool is_skipped(const ustring & line)
{
    const char16_t * unit = line.data();
    while (*unit == u' ')
        ++unit;
    return unit == line.data() + line.length() || *unit == u'#' || *unit == u'[';
}

bool begins_with(const ustring & line, const ustring & what)
{
    return line.length() >= what.length() &&
           std::memcmp(line.data(), what.data(), what.length() * sizeof(char16_t)) == 0;
}

/// The line without the blanks around it and with its key in upper case: the line itself where that changes
/// nothing, else a copy in `room`. Null when memory is short.
const ustring * tidy(const ustring & line, ustring & room)
{
    if (line.data()[0] != u' ' && line.data()[line.length() - 1] != u' ')
        return with_upper_key(line, room);
    memory_watch watch;
    room = line;
    return watch.failed() ? nullptr : with_upper_key(room.strip(ustring::strip_both, u' '), room);
}

} // namespace

short file_input_parms::get_fips(const pathname & file, int sections, const char * sections_separator,
                                 int file_type)
{
    const call_trace trace("file_input_parms::get_fips");
    kt_file input(file);
    memory_watch watch;
    const ustring separator(sections_separator); // ahead of the former place, which it may have come from
    forget_place();
    if (sections == 0) {
        trace.error("not implemented yet. Wrong call");
        return trace.fail(code::not_provided);
    }
    if (watch.failed()) {
        log_message(messages::MSG0139);
        trace.fatal("No memory for the sections_separator");
        return trace.fail(code::invalid_section);
    }
    if (const short rc = input.open("r")) {
        trace.error("Error opening input file");
        if (rc != code::open_failed) // it could be opened but not measured
            input.close();
        return trace.fail(rc);
    }
    log_message(messages::MSG0135_started, file);
    index_ = 1;
    const short rc = read_file(trace, input, separator, file_type);
    if (rc == code::success)
        log_message(messages::MSG0135_completed, file);
    input.close();
    return rc == code::success ? trace.leave(rc) : trace.fail(rc);
}

short file_input_parms::read_file(const call_trace & trace, kt_file & input, const ustring & separator,
                                  int file_type)
{
    agent_builder agents(input_info_, index_);
    record_builder<auth_profile_info> profiles(sections_);
    record_builder<user_info> users(sections_);
    no_builder none;
    switch (file_type) {
    case agent_file:
        return read_sections(trace, input, separator, agents);
    case profile_file:
        return read_sections(trace, input, separator, profiles);
    case user_file:
        return read_sections(trace, input, separator, users);
    default:
        return read_sections(trace, input, separator, none);
    }
}

short file_input_parms::read_sections(const call_trace & trace, kt_file & input, const ustring & separator,
                                      section_builder & builder)
{
    const auto refuse = [&] {
        log_message(messages::MSG0139);
        trace.fatal("Error %hd from validate %s", code::invalid_section, builder.name());
        return code::invalid_section;
    };
    ustring room;
    for (;;) {
        memory_watch watch;
        ++line_number_;
        const bool read = input.get_line(line_) != 0;
        const bool lost = watch.failed() || input.error();
        if (!read || lost) {
            line_.remove(0);
            if (lost)
                return refuse();
            line_number_ = 0;
            if (!builder.end(trace))
                return refuse();
            forget_place();
            return code::success;
        }
        if (is_skipped(line_))
            continue;
        const ustring * const line = tidy(line_, room);
        if (!line)
            return refuse();
        if (begins_with(*line, separator)) {
            trace.warning("New sections_separator <%s> found", *line);
            if (section_ != 0 && !builder.end(trace))
                return refuse();
            ++section_;
            if (!builder.begin(trace))
                return code::not_provided;
        }
        if (const short rc = builder.take(trace, *line)) {
            trace.fatal("Invalid input file");
            return rc;
        }
    }
}

void file_input_parms::forget_place()
{
    line_number_ = 0;
    section_ = 0;
    line_ = ustring();
}

} // namespace orvet
