# SPDX-FileCopyrightText: 2026 The Pallistrom authors
# SPDX-License-Identifier: MIT
"""Runs a program in an emulated machine: a kernel of its own on top of this machine's files."""
