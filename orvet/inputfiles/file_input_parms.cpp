#include "orvet/inputfiles/file_input_parms.h"

#include <cstring>
#include <memory>
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

namespace {

constexpr const char * op_system_keyword = fip_names[fip_row("OPERATING_SYSTEM=")];

/// What a kind of file makes of its sections.
class section_records {
public:
    /// How its lines are read; null when there is no record for them.
    virtual const record_kind * kind() const { return nullptr; }
    /// What the trace calls a record that is not valid.
    virtual const char * name() const { return ""; }
    /// Has a record for the lines to come. False if allocation fails.
    virtual bool prepare() { return true; }
    /// A separator line begins a section. False when there are too many.
    virtual bool begin(const call_trace &) { return true; }
    /// Passes a line to the current record and returns the code of its `set`.
    virtual short set(const call_trace & trace, const ustring & line) = 0;
    /// The current section has all its lines. False when it is not valid or can't be stored.
    virtual bool end(const call_trace & trace) = 0;
    /// Says why the current section is not valid.
    virtual void explain(detail::reading_place &) const {}

protected:
    ~section_records() = default;
};

template <class Record>
void explain_missing(const Record & record, const char * const * mandatory, detail::reading_place & place)
{
    while (*mandatory && record.fip(*mandatory))
        ++mandatory;
    if (*mandatory)
        place.keyword = *mandatory;
}

/// Agents fill the slots in place.
class agent_slots final : public section_records {
public:
    template <int Count>
    agent_slots(VXA_inst_info (&slots)[Count], int & index) : slots_(slots), count_(Count), index_(index)
    {
    }

    const record_kind * kind() const override { return &agent_kind; }
    const char * name() const override { return "VXA"; }
    bool begin(const call_trace & trace) override
    {
        if (index_++ < count_)
            return true;
        trace.fatal("Too many operating systems");
        return false;
    }
    short set(const call_trace & trace, const ustring & line) override
    {
        trace.call("set input value. _index is %d", index_);
        return slots_[index_ - 1].set(line);
    }
    bool end(const call_trace &) override { return slots_[index_ - 1].validate() != 0; }
    void explain(detail::reading_place & place) const override
    {
        const VXA_inst_info & agent = slots_[index_ - 1];
        explain_missing(agent, vxa_mandatory, place);
        if (can_be_installed(agent.op_system()))
            return;
        place.keyword = op_system_keyword;
        place.value = agent.op_system();
    }

private:
    VXA_inst_info * slots_;
    int count_;
    int & index_; // one above the slot in use
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

/// Other records are collected, one object a section.
template <class Record>
class collected_records final : public section_records {
public:
    collected_records(vector & records, const record_kind & kind, const char * const * mandatory)
        : records_(records), kind_(kind), mandatory_(mandatory)
    {
    }

    const record_kind * kind() const override { return &kind_; }
    bool prepare() override
    {
        record_.reset(make<Record>());
        return record_ != nullptr;
    }
    short set(const call_trace & trace, const ustring & line) override
    {
        trace.call("set input value");
        return record_->set(line);
    }
    bool end(const call_trace & trace) override
    {
        if (!record_->validate())
            return false;
        describe(trace, *record_);
        const unsigned before = records_.size();
        records_.push_back(record_.release());
        return records_.size() != before;
    }
    void explain(detail::reading_place & place) const override
    {
        if (record_)
            explain_missing(*record_, mandatory_, place);
    }

private:
    vector & records_;
    const record_kind & kind_;
    const char * const * mandatory_;
    std::unique_ptr<Record> record_;
};

/// A kind of file that there is no record for.
class no_records final : public section_records {
public:
    short set(const call_trace & trace, const ustring &) override
    {
        trace.call("set input value");
        return code::success;
    }
    bool end(const call_trace &) override { return false; }
};

/// True for a line without a setting: empty, a comment or in brackets.
bool is_skipped(const ustring & line)
{
    const char16_t * unit = line.data();
    while (*unit == u' ')
        ++unit;
    return unit == line.data() + line.length() || *unit == u'#' || *unit == u'[';
}

bool begins_with(const ustring & line, const ustring & what)
{
    // Both texts end in a zero, so that the first units can be compared. They tell most lines apart.
    return what.length() == 0 ||
           (line.length() >= what.length() && *line.data() == *what.data() &&
            std::memcmp(line.data(), what.data(), what.length() * sizeof(char16_t)) == 0);
}

/// The line, which is not empty, without the blanks around it and with its key in upper case: the line itself
/// if that changes nothing, else a copy in `buffer`. Null if allocation fails.
const ustring * normalize_line(const ustring & line, const record_kind * kind, ustring & buffer)
{
    const bool ends_in_blank = line.data()[line.length() - 1] == u' ';
    if (!ends_in_blank && kind && begins_with_keyword(*kind, line))
        return &line;
    if (!ends_in_blank && line.data()[0] != u' ')
        return with_upper_key(line, buffer);
    memory_watch watch;
    buffer = line;
    return watch.failed() ? nullptr : with_upper_key(buffer.strip(ustring::strip_both, u' '), buffer);
}

/// Reads the sections of an open file.
class section_reader {
public:
    section_reader(const call_trace & trace, kt_file & input, const ustring & separator,
                   detail::reading_place & place)
        : trace_(trace), input_(input), separator_(separator), place_(place)
    {
    }

    /// Returns the code of `get_fips`; `place` is then where it failed, or empty.
    short read(section_records & records)
    {
        if (!records.prepare())
            return refuse(records);
        ustring buffer;
        while (next_line()) {
            if (is_skipped(place_.text))
                continue;
            const ustring * const line = normalize_line(place_.text, records.kind(), buffer);
            if (!line)
                return refuse(records);
            if (begins_with(*line, separator_))
                if (const short rc = begin_section(records, *line))
                    return rc;
            if (const short rc = records.set(trace_, *line)) {
                trace_.fatal("Invalid input file");
                if (rc == code::invalid_op_system)
                    explain_refused_system(*line);
                return rc;
            }
        }
        if (lost_)
            return refuse(records);
        if (!records.end(trace_))
            return refuse_section(records);
        place_ = detail::reading_place();
        return code::success;
    }

private:
    /// False at the end of the file, and when the line could not be read or stored.
    bool next_line()
    {
        memory_watch watch;
        ++place_.line;
        const bool read = input_.get_line(place_.text) != 0;
        lost_ = watch.failed() || input_.error();
        if (lost_)
            place_.text.remove(0);
        return read && !lost_;
    }

    short begin_section(section_records & records, const ustring & line)
    {
        trace_.warning("New sections_separator <%s> found", line);
        if (place_.section != 0 && !records.end(trace_))
            return refuse_section(records);
        if (place_.section != 0 && !records.prepare())
            return refuse(records);
        ++place_.section;
        head_line_ = place_.line;
        head_text_ = place_.text;
        return records.begin(trace_) ? code::success : code::not_provided;
    }

    short refuse(const section_records & records)
    {
        log_message(messages::MSG0139);
        trace_.fatal("Error %hd from validate %s", code::invalid_section, records.name());
        return code::invalid_section;
    }

    /// The failure of the whole section: its place is the section's first line.
    short refuse_section(const section_records & records)
    {
        place_.line = head_line_;
        place_.text = std::move(head_text_);
        records.explain(place_);
        return refuse(records);
    }

    void explain_refused_system(const ustring & line)
    {
        place_.keyword = op_system_keyword;
        place_.value.assign(line, line.find(u'=') + 1, ustring::npos);
        place_.value.strip(ustring::strip_both, u' ');
    }

    const call_trace & trace_;
    kt_file & input_;
    const ustring & separator_;
    detail::reading_place & place_;
    bool lost_ = false; // a line that is there could not be read
    int head_line_ = 0;
    ustring head_text_;
};

} // namespace

short file_input_parms::get_fips(const pathname & file, int sections, const char * sections_separator,
                                 int file_type)
{
    const call_trace trace("file_input_parms::get_fips");
    kt_file input(file);
    memory_watch watch;
    const ustring separator(sections_separator); // copied first: it may be the text of the former place
    place_ = detail::reading_place();
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
        input.close_silently(); // open, but not measured
        return trace.fail(rc);
    }
    log_message(messages::MSG0135_started, file);
    index_ = 1;

    agent_slots agents(input_info_, index_);
    collected_records<auth_profile_info> profiles(sections_, profile_kind, auth_mandatory);
    collected_records<user_info> users(sections_, user_kind, user_mandatory);
    no_records none;
    section_reader reader(trace, input, separator, place_);
    const short rc = file_type == agent_file     ? reader.read(agents)
                     : file_type == profile_file ? reader.read(profiles)
                     : file_type == user_file    ? reader.read(users)
                                                 : reader.read(none);
    input.close_silently();
    if (rc != code::success)
        return trace.fail(rc);
    log_message(messages::MSG0135_completed, file);
    return trace.leave(rc);
}

} // namespace orvet
