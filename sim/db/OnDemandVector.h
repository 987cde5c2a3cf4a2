// A vector that takes one pointer while it is empty and gets its storage on the first write: for
// what every object can hold but few do (extended data, reactors, groups kept from the file), so
// that a drawing of a million objects does not pay three empty vectors each.
#pragma once
#include <initializer_list>
#include <memory>
#include <utility>
#include <vector>

namespace sim::db {

template <class T>
class OnDemandVector {
public:
    using Vector = std::vector<T>;
    using value_type = T;
    using iterator = typename Vector::iterator;
    using const_iterator = typename Vector::const_iterator;

    OnDemandVector() = default;
    OnDemandVector(const OnDemandVector& o) { *this = o.get(); }
    OnDemandVector(OnDemandVector&&) noexcept = default;
    OnDemandVector& operator=(const OnDemandVector& o)
    {
        if (this != &o)
            *this = o.get();
        return *this;
    }
    OnDemandVector& operator=(OnDemandVector&&) noexcept = default;
    OnDemandVector& operator=(Vector v)
    {
        if (v.empty())
            m_v.reset();
        else if (m_v)
            *m_v = std::move(v);
        else
            m_v = std::make_unique<Vector>(std::move(v));
        return *this;
    }
    OnDemandVector& operator=(std::initializer_list<T> items) { return *this = Vector(items); }

    /// The elements; an empty vector while there is no storage.
    const Vector& get() const { return m_v ? *m_v : none(); }
    operator const Vector&() const { return get(); }
    /// The vector to change, with its storage made when there is none yet.
    Vector& ensure()
    {
        if (!m_v)
            m_v = std::make_unique<Vector>();
        return *m_v;
    }

    bool empty() const { return !m_v || m_v->empty(); }
    size_t size() const { return m_v ? m_v->size() : 0; }
    // Walking makes no storage: an empty one walks from the end of an empty vector to itself.
    iterator begin() { return m_v ? m_v->begin() : iterator(); }
    iterator end() { return m_v ? m_v->end() : iterator(); }
    const_iterator begin() const { return get().begin(); }
    const_iterator end() const { return get().end(); }
    const T& operator[](size_t i) const { return (*m_v)[i]; }
    T& operator[](size_t i) { return (*m_v)[i]; }

    void push_back(const T& v) { ensure().push_back(v); }
    void push_back(T&& v) { ensure().push_back(std::move(v)); }
    template <class... A>
    T& emplace_back(A&&... a)
    {
        return ensure().emplace_back(std::forward<A>(a)...);
    }
    /// Gives the storage back.
    void clear() { m_v.reset(); }

    friend bool operator==(const OnDemandVector& a, const Vector& b) { return a.get() == b; }
    friend bool operator==(const OnDemandVector& a, const OnDemandVector& b) { return a.get() == b.get(); }

private:
    static const Vector& none()
    {
        static const Vector empty;
        return empty;
    }
    std::unique_ptr<Vector> m_v;
};

} // namespace sim::db
