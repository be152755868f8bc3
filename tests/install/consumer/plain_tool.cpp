// A tool without exceptions and type information: classes of its own, compared and kept by the library, and a
// trace of its own. Prints what does not hold.
#include <orvet/orvet.h>

#include <cstdio>

namespace {

class label : public orvet::ustring {
public:
    using ustring::ustring;
};

class place : public orvet::pathname {
public:
    using pathname::pathname;
};

class setting : public orvet::pair {
public:
    using pair::pair;
};

class counter : public orvet::ktobject {
public:
    explicit counter(int & alive) : alive_(alive) { ++alive_; }
    ~counter() override { --alive_; }

private:
    int & alive_;
};

bool equal(const orvet::codable & a, const orvet::codable & b)
{
    return a.operator==(b) != 0;
}

/// The lines that a tool's own function and a text that is never a format bring to an open trace.
unsigned traced_lines()
{
    auto * const lines = new orvet::capture_stream;
    orvet::trace::set_stream(orvet::system_trace::wa(), lines);
    orvet::trace::set_level(orvet::system_trace::wa(), 0);
    const orvet::call_trace trace("traced_lines");
    trace.info("%s at %d", label("count"), 1);
    trace.leave(0);
    const unsigned written = lines->lines().size();
    orvet::trace::set_stream(orvet::system_trace::wa(), nullptr);
    return written;
}

/// How many objects of the tool's own class are left after the last vector that held them.
int left_of_a_vector()
{
    int alive = 0;
    {
        orvet::vector items;
        items.push_back(new counter(alive));
        const orvet::vector copy(items);
    }
    return alive;
}

} // namespace

int main()
{
    const orvet::ustring text("Ketrix");
    const orvet::pathname path("Ketrix");
    const orvet::pair pair("key", "value");
    const struct {
        const char * name;
        bool holds;
    } facts[] = {
        {"a derived text equals a text", equal(text, label("Ketrix"))},
        {"a derived text is compared as a text", equal(label("Ketrix"), text)},
        {"a text in other letters differs", !equal(text, label("KETRIX"))},
        {"a text differs from a path", !equal(text, path)},
        {"a derived path equals a path, case ignored", equal(path, place("KETRIX"))},
        {"a path differs from a text", !equal(path, label("Ketrix"))},
        {"a derived pair equals a pair", equal(pair, setting("key", "value"))},
        {"a pair of another value differs", !equal(pair, setting("key", "other"))},
        {"a pair differs from a text", !equal(pair, text)},
        {"operator== takes a derived text", text == label("Ketrix")},
        {"a vector deletes what it held", left_of_a_vector() == 0},
        {"four lines are traced", traced_lines() == 4},
    };
    int failures = 0;
    for (const auto & fact : facts) {
        if (!fact.holds)
            ++failures;
        if (!fact.holds)
            std::printf("not so: %s\n", fact.name);
    }
    return failures;
}
