"""Posters for the sample launcher's games; scripts/make-box-art draws them."""
