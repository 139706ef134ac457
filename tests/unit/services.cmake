# orvane_add_tests(...)
