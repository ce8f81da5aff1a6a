;;; -*- lexical-binding: t -*-
