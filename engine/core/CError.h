#pragma once

// The type of an object's last error. No values are fixed; the numeric codes of CXObject are in use.

enum _errtype : int {};

class CError {
public:
    void Type(_errtype type) { type_ = type; }
    _errtype GetType() const { return type_; }

private:
    _errtype type_{};
};
