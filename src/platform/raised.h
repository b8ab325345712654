// A flag that is up for as long as something runs, however that ends.
#pragma once

namespace zelvo::platform {

/// Sets a flag for its own life.
class Raised {
 public:
  explicit Raised(bool& flag) : flag_(flag) { flag_ = true; }
  Raised(const Raised&) = delete;
  Raised& operator=(const Raised&) = delete;
  ~Raised() { flag_ = false; }

 private:
  bool& flag_;
};

}  // namespace zelvo::platform
