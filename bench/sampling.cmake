# benchmarks of the sampling
