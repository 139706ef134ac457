# target_sources(orvane_platform PRIVATE ...)
